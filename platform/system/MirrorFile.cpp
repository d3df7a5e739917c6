#include <afxpriv.h>

#include "Paths.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <new>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

// The new file is called ".<16 hexadecimal digits>.new-layout" and is locked as long as its writer lives. One that
// nobody has locked is what a killed writer left behind; the next writer in this folder removes it.

namespace
{

constexpr std::string_view mirrorSuffix = ".new-layout";
constexpr std::size_t mirrorDigits = 16;
constexpr int mostLinks = 40; // as many as the system itself follows
constexpr int mostTries = 100;
constexpr mode_t permissionBits = 07777;

std::string FolderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
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
        path = name.starts_with('/') ? name : FolderOf(path).append("/").append(name);
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
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
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

// Whether a file that was just made is still the one of its name: somebody may have taken it for a leftover in the
// moment before it was locked. A file system without locks will do: no file is taken for a leftover there.
bool LockNewFile(int file)
{
    struct stat status{};
    const bool isTaken = flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    return !isTaken && fstat(file, &status) == 0 && status.st_nlink > 0;
}

// In a sticky folder only its owner and the file's may put another file in the place of one.
bool MayReplace(const std::string& folder, const struct stat& old)
{
    struct stat status{};
    const uid_t user = geteuid();
    return stat(folder.c_str(), &status) != 0 || (status.st_mode & S_ISVTX) == 0 || user == 0 ||
           user == status.st_uid || user == old.st_uid;
}

// Gives the new file the old one's owner, group and permissions, as far as the user may. Without the group, what the
// group was allowed falls back to what everybody is.
void CopyPermissions(int file, const struct stat& old)
{
    mode_t mode = old.st_mode & permissionBits;
    if (fchown(file, old.st_uid, old.st_gid) != 0 && fchown(file, static_cast<uid_t>(-1), old.st_gid) != 0)
        mode = (mode & ~S_IRWXG & permissionBits) | ((mode & S_IRWXO) << 3);
    fchmod(file, mode);
}

void FlushFolder(const std::string& folder)
{
    const int file = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0)
        return;
    fsync(file); // some file systems refuse this for a folder; the file itself is safe by then
    close(file);
}

} // namespace

CMirrorFile::~CMirrorFile() { CMirrorFile::Abort(); }

BOOL CMirrorFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags)
{
    CMirrorFile::Abort();
    if ((nOpenFlags & modeCreate) == 0)
        return CFile::Open(lpszFileName, nOpenFlags);
    try {
        m_strTarget = FollowLinks(NativePath(lpszFileName));
        if (m_strTarget.empty())
            return FALSE;
        struct stat old{};
        const bool exists = stat(m_strTarget.c_str(), &old) == 0;
        const bool replaceable = !exists || (S_ISREG(old.st_mode) && access(m_strTarget.c_str(), W_OK) == 0 &&
                                             MayReplace(FolderOf(m_strTarget), old));
        if (!replaceable || !OpenMirror(exists ? &old : nullptr)) {
            const bool refused = exists && (errno == EACCES || errno == EPERM || errno == EROFS);
            if (replaceable && !refused) // a folder without room is no reason to empty the old file
                return FALSE;
            m_strMirrorName.clear();
            if (!OpenNative(m_strTarget, O_WRONLY | O_TRUNC))
                return FALSE;
        }
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
    m_strFileName = lpszFileName;
    return TRUE;
}

bool CMirrorFile::OpenMirror(const struct stat* pOld)
{
    m_strFolder = FolderOf(m_strTarget);
    RemoveLeftovers(m_strFolder);
    for (int i = 0; i < mostTries; ++i) {
        m_strMirrorName = m_strFolder + '/' + MirrorName();
        if (!OpenNative(m_strMirrorName, O_WRONLY | O_CREAT | O_EXCL)) {
            if (errno == EEXIST)
                continue;
            return false;
        }
        if (LockNewFile(m_hFile)) {
            if (pOld)
                CopyPermissions(m_hFile, *pOld);
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
    if (fsync(m_hFile) != 0 && errno != EINVAL && errno != EROFS) // devices have nothing to flush
        ThrowSystemError(errno);
    if (!m_strMirrorName.empty()) {
        if (rename(m_strMirrorName.c_str(), m_strTarget.c_str()) != 0)
            ThrowSystemError(errno);
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
    CFile::Abort();
}
