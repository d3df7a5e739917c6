#include "CatalogueFile.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace glossa
{

namespace
{

constexpr const char* folderVariable = "GLOSSA_LOCALEDIR";
constexpr const char* fileBelowLanguage = "/LC_MESSAGES/glossa.mo";
constexpr std::size_t largestFile = 1 << 20; // bytes; the texts of a program take a hundredth of it
constexpr std::size_t blockSize = 16384;     // bytes

class Descriptor
{
public:
    // Without blocking: a pipe that nobody writes to would hold up the program.
    explicit Descriptor(const char* path) : m_fd(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (IsOpen())
            close(m_fd);
    }

    bool IsOpen() const { return m_fd >= 0; }
    int Get() const { return m_fd; }

private:
    int m_fd;
};

std::string LocaleFolder()
{
    const char* const named = std::getenv(folderVariable);
    return named != nullptr && *named != 0 ? named : InstalledLocaleFolder();
}

// Gives null when the whole file has been read, else what hinders.
const char* ReadWhole(int fd, std::string& bytes)
{
    struct stat status = {};
    if (fstat(fd, &status) != 0)
        return std::strerror(errno);
    if (!S_ISREG(status.st_mode))
        return "not a regular file";
    std::array<char, blockSize> block{};
    for (;;) {
        const ssize_t count = read(fd, block.data(), block.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::strerror(errno);
        if (count == 0)
            return bytes.empty() ? "empty" : nullptr;
        bytes.append(block.data(), static_cast<std::size_t>(count));
        // Counted while reading: the size that a file tells can be out of date.
        if (bytes.size() > largestFile)
            return "too long for a catalogue";
    }
}

} // namespace

CatalogueFile ReadCatalogueFile(const std::string& language)
{
    CatalogueFile file{LocaleFolder() + "/" + language + fileBelowLanguage, {}};
    const Descriptor descriptor(file.Path.c_str());
    if (!descriptor.IsOpen()) {
        if (errno != ENOENT && errno != ENOTDIR)
            TellUnusable(file.Path, std::strerror(errno));
        return file;
    }
    if (const char* const reason = ReadWhole(descriptor.Get(), file.Bytes)) {
        TellUnusable(file.Path, reason);
        file.Bytes.clear();
    }
    return file;
}

const std::string& InstalledLocaleFolder()
{
    static const std::string folder = [] {
        Dl_info info = {};
        const auto* const here = reinterpret_cast<const void*>(&InstalledLocaleFolder);
        if (dladdr(here, &info) == 0 || info.dli_fname == nullptr)
            return std::string(".");
        std::error_code ignored;
        std::filesystem::path library = std::filesystem::canonical(info.dli_fname, ignored);
        if (ignored)
            library = info.dli_fname;
        return (library.parent_path() / STYLEATLAS_LIB_TO_LOCALE).lexically_normal().string();
    }();
    return folder;
}

void TellUnusable(const std::string& path, const char* reason) noexcept
{
    std::fprintf(stderr, "glossa: %s is left out: %s\n", path.c_str(), reason);
}

} // namespace glossa
