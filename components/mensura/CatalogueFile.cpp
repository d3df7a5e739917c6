#include "CatalogueFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <utility>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mensura
{
namespace
{

constexpr const char* PathVariable = "MENSURA_CATALOGUE";
constexpr const char* FileName = "/mensura.catalogue";
constexpr std::size_t MaxFileSize = 16 << 20;
constexpr std::size_t MaxLineLength = 4096;
constexpr std::size_t MaxMessages = 20;
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

// The messages about one file; past the limit they are only counted.
class Complaints
{
public:
    explicit Complaints(const std::string& path) : m_path{path} {}

    void TellOfFile(const char* reason) const
    {
        std::fprintf(stderr, "mensura: %s: %s\n", m_path.c_str(), reason);
    }

    void TellOfLine(std::size_t line, const std::string& reason)
    {
        if (++m_count <= MaxMessages)
            std::fprintf(stderr, "mensura: %s:%zu: %s\n", m_path.c_str(), line, reason.c_str());
    }

    void TellOfRest() const
    {
        if (m_count > MaxMessages)
            TellOfFile(("... and " + std::to_string(m_count - MaxMessages) + " more").c_str());
    }

private:
    const std::string& m_path;
    std::size_t m_count = 0;
};

class FileDescriptor
{
public:
    // Without O_NONBLOCK a pipe would hold the caller until somebody writes into it.
    explicit FileDescriptor(const std::string& path)
        : m_descriptor{open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)}
    {
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }

    bool IsOpen() const { return m_descriptor >= 0; }

    bool IsRegular() const
    {
        struct stat status = {};
        return fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode);
    }

    ssize_t Read(std::array<char, 65536>& buffer) const
    {
        ssize_t count = -1;
        do
            count = read(m_descriptor, buffer.data(), buffer.size());
        while (count < 0 && errno == EINTR);
        return count;
    }

private:
    int m_descriptor;
};

// The whole file, with its true size as the limit: what stat says of a file need not be what reading gives.
std::optional<std::string> ReadFile(const std::string& path, const Complaints& complaints)
{
    const FileDescriptor file{path};
    if (!file.IsOpen()) {
        complaints.TellOfFile(std::strerror(errno));
        return std::nullopt;
    }
    if (!file.IsRegular()) {
        complaints.TellOfFile("not a regular file");
        return std::nullopt;
    }
    std::string content;
    std::array<char, 65536> buffer;
    while (const ssize_t count = file.Read(buffer)) {
        if (count < 0) {
            complaints.TellOfFile(std::strerror(errno));
            return std::nullopt;
        }
        content.append(buffer.data(), static_cast<std::size_t>(count));
        if (content.size() > MaxFileSize) {
            complaints.TellOfFile("larger than 16 MiB");
            return std::nullopt;
        }
    }
    return content;
}

// False where the catalogue takes no more lines.
bool AddLine(std::string_view text, std::size_t number, Catalogue& catalogue, Complaints& complaints)
{
    if (text.size() > MaxLineLength) {
        complaints.TellOfLine(number, "the line is longer than " + std::to_string(MaxLineLength) + " bytes");
        return true;
    }
    if (IsSilent(text))
        return true;
    std::string reason;
    std::optional<CatalogueLine> line = ParseLine(text, reason);
    if (!line) {
        complaints.TellOfLine(number, reason);
        return true;
    }
    if (catalogue.Add(std::move(*line)))
        return true;
    complaints.TellOfLine(number, "more than " + std::to_string(Catalogue::MaxLines) +
                                      " lines; this one and all after it are left out");
    return false;
}

// The folder of the installed data, seen from the file that this code was loaded from.
std::string DataFolder()
{
    Dl_info self = {};
    if (dladdr(reinterpret_cast<const void*>(&DataFolder), &self) == 0 || self.dli_fname == nullptr)
        return MENSURA_LIB_TO_DATA;
    const std::string_view library = self.dli_fname;
    const std::size_t slash = library.rfind('/');
    const std::string folder = slash == std::string_view::npos ? "." : std::string{library.substr(0, slash)};
    return folder + "/" + MENSURA_LIB_TO_DATA;
}

} // namespace

std::string CataloguePath()
{
    const char* const named = std::getenv(PathVariable);
    return named != nullptr && *named != '\0' ? named : DataFolder() + FileName;
}

std::optional<FileStamp> StampOf(const std::string& path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return FileStamp{status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
                     status.st_mtim.tv_nsec};
}

Catalogue ReadCatalogue(const std::string& path)
{
    Catalogue catalogue;
    Complaints complaints{path};
    const std::optional<std::string> content = ReadFile(path, complaints);
    if (!content)
        return catalogue;
    std::string_view rest = *content;
    if (rest.starts_with(ByteOrderMark))
        rest.remove_prefix(ByteOrderMark.size());
    bool isTakingLines = true;
    for (std::size_t number = 1; isTakingLines && !rest.empty(); ++number) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        isTakingLines = AddLine(rest.substr(0, end), number, catalogue, complaints);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    complaints.TellOfRest();
    return catalogue;
}

} // namespace mensura
