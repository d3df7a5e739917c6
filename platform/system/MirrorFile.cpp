#include <afxpriv.h>

#include "Memory.h"
#include "Paths.h"
#include "Permissions.h"
#include "SignalGuard.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

// The new file is called ".<16 hexadecimal digits>.new-layout" and is locked as long as its writer lives. One
// that nobody has locked is what a killed writer left behind; the next writer in this folder removes it.

namespace
{

constexpr std::string_view mirrorSuffix = ".new-layout";
constexpr std::size_t mirrorDigits = 16;
constexpr int mostLinks = 40; // as many as the system itself follows
constexpr int mostTries = 100;
constexpr std::size_t largestPiece = 1 << 20;
constexpr mode_t ownersOnly = 0600; // until the file has the permissions of the one that it replaces

// Up to the last slash, that included; empty for the current folder.
std::string FolderOf(const std::string& path)
{
    return path.substr(0, path.rfind('/') + 1);
}

// The file at the end of a chain of symbolic links, whether it exists or not; empty if the chain has no end.
std::string FollowLinks(std::string path)
{
    for (int i = 0; i <= mostLinks; ++i) {
        std::array<char, 4096> target;
        const ssize_t length = readlink(path.c_str(), target.data(), target.size());
        if (length < 0)
            return path;
        if (static_cast<std::size_t>(length) == target.size())
            return {};
        const std::string name(target.data(), static_cast<std::size_t>(length));
        path = name.starts_with('/') ? name : FolderOf(path) + name;
    }
    return {};
}

std::string MirrorName()
{
    unsigned long long number = 0;
    if (getrandom(&number, sizeof number, GRND_NONBLOCK) < 0)
        number = static_cast<unsigned long long>(getpid());
    std::array<char, mirrorDigits + 2> digits;
    std::snprintf(digits.data(), digits.size(), ".%016llx", number);
    return std::string(digits.data()).append(mirrorSuffix);
}

bool IsMirrorName(std::string_view name)
{
    return name.size() == 1 + mirrorDigits + mirrorSuffix.size() && name.starts_with('.') &&
           name.ends_with(mirrorSuffix) &&
           name.substr(1, mirrorDigits).find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

void RemoveLeftovers(const std::string& folder)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.empty() ? "." : folder.c_str()),
                                                      closedir);
    if (!entries)
        return;
    while (const dirent* const entry = readdir(entries.get())) {
        if (!IsMirrorName(entry->d_name))
            continue;
        const int descriptor = dirfd(entries.get());
        const int file = openat(descriptor, entry->d_name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (file < 0)
            continue;
        if (flock(file, LOCK_SH | LOCK_NB) == 0) // all that a network file system gives to a reader
            unlinkat(descriptor, entry->d_name, 0);
        close(file);
    }
}

// Whether a file that was just made is still the one of its name: somebody may have taken it for a leftover
// in the moment before it was locked. A file system without locks will do: no file is taken for a leftover
// there.
bool LockNewFile(int file)
{
    struct stat status {
    };
    const bool isTaken = flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    return !isTaken && fstat(file, &status) == 0 && status.st_nlink > 0;
}

// Of a new file beside the old one, or in its place: the file itself may be writable all the same, as one
// that somebody else owns in a sticky folder, or one that is mounted by itself.
bool IsRefusal(int error)
{
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY || error == EXDEV;
}

// Writes the contents of the open file over the target; gives what failed, 0 for nothing.
int WriteOver(int file, const std::string& target)
{
    const SignalGuard guard;
    const int over = open(target.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
    if (over < 0)
        return errno;
    off_t position = 0;
    ssize_t sent = 0;
    do
        sent = sendfile(over, file, &position, largestPiece);
    while (sent > 0 || (sent < 0 && errno == EINTR));
    const int error = sent < 0 || fsync(over) != 0 ? errno : 0;
    close(over);
    return error;
}

void FlushFolder(const std::string& folder)
{
    const int file = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0)
        return;
    fsync(file); // some file systems refuse this for a folder; the file itself is safe by then
    close(file);
}

} // namespace

CMirrorFile::~CMirrorFile()
{
    CMirrorFile::Abort();
}

BOOL CMirrorFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags)
{
    CMirrorFile::Abort();
    if ((nOpenFlags & modeCreate) == 0)
        return CFile::Open(lpszFileName, nOpenFlags);
    if (!WithFrameworkMemory([&] { return OpenForCreation(FollowLinks(NativePath(lpszFileName))); }))
        return FALSE;
    m_strFileName = lpszFileName;
    return TRUE;
}

bool CMirrorFile::OpenForCreation(const std::string& target)
{
    if (target.empty())
        return false;
    m_strTarget = target;
    m_strFolder = FolderOf(target);
    struct stat old {
    };
    const bool exists = stat(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT)
        return false; // a name that is too long, for instance, with which no file could take its place
    if (exists && (!S_ISREG(old.st_mode) || faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0))
        return OpenNative(target, O_WRONLY | O_TRUNC) != FALSE;
    if (OpenMirror(exists ? &old : nullptr))
        return true;
    // A folder without room is no reason to empty the old file.
    return exists && IsRefusal(errno) && OpenNative(target, O_WRONLY | O_TRUNC) != FALSE;
}

// False, with errno, where the folder takes no new file.
bool CMirrorFile::OpenMirror(const struct stat* pOld)
{
    RemoveLeftovers(m_strFolder);
    for (int i = 0; i < mostTries; ++i) {
        m_strMirrorName = m_strFolder + MirrorName();
        if (!OpenNative(m_strMirrorName, O_RDWR | O_CREAT | O_EXCL, pOld ? ownersOnly : newFileMode)) {
            m_strMirrorName.clear();
            if (errno == EEXIST)
                continue;
            return false;
        }
        if (LockNewFile(m_hFile)) {
            if (pOld)
                CopyPermissions(m_hFile, m_strTarget, *pOld);
            return true;
        }
        CMirrorFile::Abort();
    }
    errno = EBUSY;
    return false;
}

void CMirrorFile::Close()
{
    if (m_hFile == hFileNull)
        return;
    Flush();
    if (fsync(m_hFile) != 0 && errno != EINVAL && errno != EROFS) // devices have nothing to flush
        ThrowSystemError(errno);
    if (!m_strMirrorName.empty()) {
        if (rename(m_strMirrorName.c_str(), m_strTarget.c_str()) != 0) {
            const int error = IsRefusal(errno) ? WriteOver(m_hFile, m_strTarget) : errno;
            if (error != 0)
                ThrowSystemError(error);
            unlink(m_strMirrorName.c_str());
        }
        m_strMirrorName.clear();
        FlushFolder(m_strFolder);
    }
    CFile::Close();
}

void CMirrorFile::Abort()
{
    if (m_hFile != hFileNull && !m_strMirrorName.empty())
        unlink(m_strMirrorName.c_str());
    m_strMirrorName.clear();
    m_gathered.clear();
    CFile::Abort();
}
