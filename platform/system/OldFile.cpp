#include "OldFile.h"

#include "Descriptors.h"
#include "NewFile.h"
#include "Permissions.h"
#include "SignalGuard.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr std::size_t maxPieceSize = 1 << 20;
constexpr int maxTries = 10;
constexpr mode_t ownersOnly = 0600; // until the copy gets the permissions of the file

std::string PreviousOf(const std::string& path)
{
    return path + '~';
}

// Returns errno, or 0.
int CopyContents(int from, int to)
{
    const SignalGuard guard;
    off_t position = 0;
    ssize_t sent = 0;
    do
        sent = sendfile(to, from, &position, maxPieceSize);
    while (sent > 0 || (sent < 0 && errno == EINTR));
    return sent < 0 || fsync(to) != 0 ? errno : 0;
}

// A copy under a temporary name. Its destructor removes it, unless it has been renamed.
class Copy
{
public:
    Copy(const std::string& path, const std::string& folder) : m_error(Make(path, folder)) {}
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;
    ~Copy()
    {
        if (m_file)
            unlink(m_path.c_str());
    }
    int Error() const { return m_error; } // 0 for none
    const std::string& Path() const { return m_path; }

private:
    int Make(const std::string& path, const std::string& folder)
    {
        const Descriptor from(OpenFile(path.c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK));
        struct stat status {
        };
        if (!from || fstat(from.Get(), &status) != 0)
            return errno;
        m_file = Descriptor(MakeNewFile(folder, ownersOnly, m_path));
        if (!m_file)
            return errno;
        const int error = CopyContents(from.Get(), m_file.Get());
        if (error == 0)
            CopyPermissions(m_file.Get(), path, status);
        return error;
    }

    std::string m_path;
    Descriptor m_file{-1};
    int m_error;
};

// Repeats a read or write until all bytes are transferred; false, with errno, on an error.
template <class Transfer> bool TransferAll(Transfer transfer, std::size_t size)
{
    std::size_t done = 0;
    while (done < size) {
        const ssize_t count = transfer(done, size - done);
        if (count == 0)
            errno = EIO;
        if (count <= 0 && errno != EINTR)
            return false;
        done += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
    return true;
}

bool WriteAll(int file, std::string_view text)
{
    return TransferAll(
        [=](std::size_t at, std::size_t count) {
            return pwrite(file, text.data() + at, count, static_cast<off_t>(at));
        },
        text.size());
}

bool ReadAll(int file, std::string& text)
{
    return TransferAll(
        [&, file](std::size_t at, std::size_t count) {
            return pread(file, text.data() + at, count, static_cast<off_t>(at));
        },
        text.size());
}

bool MakeRoom(int file, std::size_t size)
{
    return size == 0 || fallocate(file, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size)) == 0 ||
           errno == EOPNOTSUPP || errno == ENOSYS || errno == EINTR;
}

} // namespace

void KeepAsPrevious(const std::string& path, Keeping keeping)
{
    const std::string previous = PreviousOf(path);
    for (int i = 0; keeping == Keeping::byLink && i < maxTries; ++i) {
        const std::string name = NewPath(FolderOf(path));
        if (link(path.c_str(), name.c_str()) != 0)
            break;
        const bool isKept = rename(name.c_str(), previous.c_str()) == 0;
        const bool wasRemoved = !isKept && errno == ENOENT; // by another writer, as a leftover
        unlink(name.c_str());                               // rename leaves it if both are links to one file
        if (!wasRemoved)
            return;
    }
    const Copy copy(path, FolderOf(path));
    if (copy.Error() == 0)
        rename(copy.Path().c_str(), previous.c_str());
}

bool HasOtherNames(const std::string& path, const struct stat& status)
{
    // Another process may be renaming its link to NAME~: look again a moment later.
    struct stat now = status;
    for (int i = 0; i < maxTries; ++i) {
        struct stat previous {
        };
        const bool isPrevious = lstat(PreviousOf(path).c_str(), &previous) == 0 &&
                                previous.st_ino == now.st_ino && previous.st_dev == now.st_dev;
        if (now.st_nlink <= (isPrevious ? 2U : 1U))
            return false;
        usleep(1000);
        if (stat(path.c_str(), &now) != 0)
            return false;
    }
    return true;
}

int Overwrite(int file, std::string_view contents)
{
    const SignalGuard guard;
    struct stat old {
    };
    if (fstat(file, &old) != 0 || !MakeRoom(file, contents.size()))
        return errno;
    std::string before(std::min(contents.size(), static_cast<std::size_t>(old.st_size)), '\0');
    const bool isKnown = ReadAll(file, before);
    // Cut off the rest only when the new contents are safe, as it isn't kept for restoring.
    if (WriteAll(file, contents) && fsync(file) == 0 &&
        ftruncate(file, static_cast<off_t>(contents.size())) == 0)
        return fsync(file) == 0 ? 0 : errno;
    const int error = errno;
    if (isKnown && WriteAll(file, before) && ftruncate(file, old.st_size) == 0)
        fsync(file);
    return error;
}

int CopyUnder(const std::string& path, const std::string& copy)
{
    const Copy made(path, FolderOf(copy));
    if (made.Error() != 0)
        return made.Error();
    if (renameat2(AT_FDCWD, made.Path().c_str(), AT_FDCWD, copy.c_str(), RENAME_NOREPLACE) == 0) {
        FlushFolder(FolderOf(copy));
        return 0;
    }
    // Without RENAME_NOREPLACE a link serves, as it doesn't replace a file either.
    const bool isSupported = errno != EINVAL && errno != ENOSYS;
    return isSupported || link(made.Path().c_str(), copy.c_str()) != 0 ? errno : 0;
}
