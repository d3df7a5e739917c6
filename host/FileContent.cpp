#include "FileContent.h"

#include "Texts.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

#include <fcntl.h>
#include <sys/stat.h>

namespace atlashost
{
namespace
{

constexpr std::size_t MaxMebibytes = 64;
constexpr std::size_t MaxSize = MaxMebibytes << 20;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

[[noreturn]] void ThrowSystemError()
{
    throw std::runtime_error{std::strerror(errno)};
}

// Without O_NONBLOCK the opening of a pipe would wait for a writer.
File OpenRegular(const std::string& path, std::size_t& size)
{
    const int descriptor = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        ThrowSystemError();
    File file{fdopen(descriptor, "rb")};
    if (!file)
        ThrowSystemError();
    struct stat status = {};
    if (fstat(descriptor, &status) != 0)
        ThrowSystemError();
    if (!S_ISREG(status.st_mode))
        throw std::runtime_error{Text("not a regular file")};
    size = static_cast<std::size_t>(status.st_size);
    return file;
}

} // namespace

void GoOn(const Progress& progress, std::size_t done, std::size_t all)
{
    if (progress && !progress(done, all))
        throw std::runtime_error{Text("the reading was cancelled")};
}

std::string ReadFileContent(const std::string& path, const Progress& progress)
{
    std::size_t size = 0;
    const File file = OpenRegular(path, size);
    std::string content;
    content.reserve(std::min(size, MaxSize));
    std::array<char, 65536> buffer;
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file.get())) {
        content.append(buffer.data(), count); // by the bytes read, as the file may grow meanwhile
        if (content.size() > MaxSize)
            throw std::runtime_error{Text("larger than %1 MiB", {std::to_string(MaxMebibytes)})};
        GoOn(progress, content.size(), 2 * std::max(size, content.size()));
    }
    if (std::ferror(file.get()) != 0)
        ThrowSystemError();
    return content;
}

} // namespace atlashost
