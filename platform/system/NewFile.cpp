#include "NewFile.h"

#include "Descriptors.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr std::string_view suffix = ".new-layout";
constexpr std::size_t digitCount = 16;
constexpr int maxTries = 100;

bool IsNewName(std::string_view name)
{
    return name.size() == 1 + digitCount + suffix.size() && name.starts_with('.') && name.ends_with(suffix) &&
           name.substr(1, digitCount).find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

std::string NameOf(const std::string& folder)
{
    return folder.empty() ? "." : folder;
}

// Whether a new file keeps its name: another writer may have removed it as a leftover before it was locked,
// or be about to. On a file system without locks nothing is removed as a leftover.
bool LockNewFile(int file)
{
    struct stat status {
    };
    const bool isLockedByOther = flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    return !isLockedByOther && fstat(file, &status) == 0 && status.st_nlink > 0;
}

} // namespace

std::string FolderOf(const std::string& path)
{
    return path.substr(0, path.rfind('/') + 1);
}

std::string NewPath(const std::string& folder)
{
    unsigned long long number = 0;
    if (getrandom(&number, sizeof number, GRND_NONBLOCK) < 0)
        number = static_cast<unsigned long long>(getpid());
    std::array<char, digitCount + 2> digits;
    std::snprintf(digits.data(), digits.size(), ".%016llx", number);
    return folder + digits.data() + std::string(suffix);
}

int MakeNewFile(const std::string& folder, mode_t mode, std::string& path)
{
    for (int i = 0; i < maxTries; ++i) {
        path = NewPath(folder);
        Descriptor file(OpenFile(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOCTTY, mode));
        const bool isTaken = !file && errno == EEXIST;
        if (!isTaken && (!file || LockNewFile(file.Get())))
            return file.Release();
        if (file)
            unlink(path.c_str()); // another writer takes it for a leftover
    }
    errno = EBUSY;
    return -1;
}

void RemoveLeftovers(const std::string& folder)
{
    const Folder entries = OpenFolder(NameOf(folder));
    while (const dirent* const entry = entries ? readdir(entries.get()) : nullptr) {
        if (!IsNewName(entry->d_name))
            continue;
        const int in = dirfd(entries.get());
        const Descriptor file(OpenAt(in, entry->d_name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK));
        // NFS grants no exclusive lock on a file opened for reading.
        if (file && flock(file.Get(), LOCK_SH | LOCK_NB) == 0)
            unlinkat(in, entry->d_name, 0);
    }
}

void FlushFolder(const std::string& folder)
{
    const Descriptor file(OpenFile(NameOf(folder).c_str(), O_RDONLY | O_DIRECTORY));
    fsync(file.Get()); // not every file system can; the files in it are synced already
}
