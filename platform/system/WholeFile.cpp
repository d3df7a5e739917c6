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

} // namespace

const char* ReadWholeFile(const std::string& nativePath, std::size_t maxBytes, std::string& bytes)
{
    bytes.clear();
    // Without O_NONBLOCK, opening a pipe would block until it has a writer.
    const Descriptor file(OpenFile(nativePath.c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK));
    if (!file)
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
