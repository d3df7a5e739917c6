#include "WholeFile.h"

#include "Descriptors.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr std::size_t blockSize = 16384;

class Descriptor
{
public:
    // Without O_NONBLOCK, opening a pipe would block until it has a writer.
    explicit Descriptor(const char* path) : m_file(OpenFile(path, O_RDONLY | O_NOCTTY | O_NONBLOCK)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (m_file >= 0)
            close(m_file);
    }
    int Get() const { return m_file; }

private:
    int m_file;
};

} // namespace

const char* ReadWholeFile(const std::string& nativePath, std::size_t maxBytes, std::string& bytes)
{
    bytes.clear();
    const Descriptor file(nativePath.c_str());
    if (file.Get() < 0)
        return std::strerror(errno);
    struct stat status {
    };
    if (fstat(file.Get(), &status) != 0)
        return std::strerror(errno);
    if (!S_ISREG(status.st_mode))
        return "not a regular file";
    std::array<char, blockSize> block;
    for (;;) {
        const ssize_t count = read(file.Get(), block.data(), block.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::strerror(errno);
        if (count == 0)
            return nullptr;
        // Counted while reading, as the file may grow meanwhile.
        if (bytes.size() + static_cast<std::size_t>(count) > maxBytes)
            return "too large";
        bytes.append(block.data(), static_cast<std::size_t>(count));
    }
}
