// Files by the bare calls of the system.
#include "BareStore.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace
{

constexpr mode_t fileMode = 0666;

[[noreturn]] void Fail(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

class Descriptor
{
public:
    Descriptor(const std::filesystem::path& path, int flags) : m_file(open(path.c_str(), flags, fileMode))
    {
        if (m_file < 0)
            Fail("open");
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(m_file); }

    operator int() const { return m_file; } // NOLINT(google-explicit-constructor): it stands for the number

private:
    int m_file;
};

} // namespace

namespace bench
{

PlainTable BareLoad(const std::filesystem::path& path, std::size_t rows)
{
    {
        const Descriptor file(path, O_RDONLY);
        std::array<char, bareBufferSize> buffer;
        ssize_t got = 0;
        while ((got = read(file, buffer.data(), buffer.size())) > 0) {
        }
        if (got < 0)
            Fail("read");
    }
    return MakePlainTable(rows);
}

void ReplaceFile(const std::filesystem::path& path, std::string_view bytes, std::size_t atOnce)
{
    const std::filesystem::path beside = path.native() + ".new";
    {
        const Descriptor file(beside, O_WRONLY | O_CREAT | O_TRUNC);
        for (; !bytes.empty(); bytes.remove_prefix(std::min(atOnce, bytes.size()))) {
            const std::size_t count = std::min(atOnce, bytes.size());
            if (write(file, bytes.data(), count) != static_cast<ssize_t>(count))
                Fail("write");
        }
        if (fsync(file) != 0)
            Fail("fsync");
    }
    if (std::rename(beside.c_str(), path.c_str()) != 0)
        Fail("rename");
    const Descriptor folder(path.parent_path(), O_RDONLY | O_DIRECTORY);
    if (fsync(folder) != 0)
        Fail("fsync");
}

} // namespace bench
