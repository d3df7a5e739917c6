#include "CatalogueFile.h"

#include <ModuleFolder.h>
#include <StandardError.h>
#include <WholeFile.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <sys/stat.h>
#include <utility>

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

    void TellOfFile(const std::string& reason) const
    {
        WriteToStandardError("mensura: " + m_path + ": " + reason + '\n');
    }

    void TellOfLine(std::size_t line, const std::string& reason)
    {
        if (++m_count <= MaxMessages)
            WriteToStandardError("mensura: " + m_path + ':' + std::to_string(line) + ": " + reason + '\n');
    }

    void TellOfRest() const
    {
        if (m_count > MaxMessages)
            TellOfFile("... and " + std::to_string(m_count - MaxMessages) + " more");
    }

private:
    const std::string& m_path;
    std::size_t m_count = 0;
};

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

} // namespace

std::string CataloguePath()
{
    const char* const named = secure_getenv(PathVariable);
    return named != nullptr && *named != '\0'
               ? named
               : std::string(ModuleFolder()) + "/" MENSURA_LIB_TO_DATA + FileName;
}

std::optional<FileStamp> StampOf(const std::string& path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return FileStamp{status.st_dev,         status.st_ino,          status.st_size,
                     status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_ctim.tv_sec,
                     status.st_ctim.tv_nsec};
}

Catalogue ReadCatalogue(const std::string& path)
{
    Catalogue catalogue;
    Complaints complaints{path};
    std::string content;
    if (const char* const hindrance = ReadWholeFile(path, MaxFileSize, content)) {
        complaints.TellOfFile(hindrance);
        return catalogue;
    }
    std::string_view rest = content;
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
