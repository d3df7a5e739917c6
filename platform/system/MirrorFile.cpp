#include <afxpriv.h>

#include "Links.h"
#include "Memory.h"
#include "NewFile.h"
#include "OldFile.h"
#include "Paths.h"
#include "Permissions.h"
#include "WholeFile.h"

#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr mode_t ownersOnly = 0600; // until it gets the permissions of the file that it replaces

// Errors of a path at which no file can exist; Open returns false for them and raises nothing.
bool IsUnusablePath(int error)
{
    return error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG || error == ELOOP;
}

// Errors of replacing a file that may still be writable itself: another user's file in a sticky folder, or a
// mount point.
bool IsRefusal(int error)
{
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY || error == EXDEV;
}

} // namespace

CMirrorFile::~CMirrorFile()
{
    CMirrorFile::Abort();
}

BOOL CMirrorFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags)
{
    if ((nOpenFlags & modeCreate) == 0)
        return CFile::Open(lpszFileName, nOpenFlags);
    return WithFrameworkMemory([&] {
        m_strFileName = lpszFileName;
        return OpenForCreation(NativePath(lpszFileName)) ? TRUE : FALSE;
    });
}

bool CMirrorFile::OpenForCreation(const std::string& path)
{
    m_bOverwrites = false;
    m_strContents.clear();
    m_strTarget = FollowLinks(path);
    if (m_strTarget.empty())
        return Refuse(path.empty() ? ENOENT : errno);
    struct stat old {
    };
    if (stat(m_strTarget.c_str(), &old) != 0) {
        const bool isNew = errno == ENOENT;
        return (isNew && OpenMirror(nullptr)) || Refuse(errno);
    }
    if (S_ISCHR(old.st_mode))
        return OpenNative(m_strTarget, O_WRONLY) || Refuse(errno);
    if (!S_ISREG(old.st_mode))
        return Refuse(S_ISDIR(old.st_mode) ? EISDIR : EACCES);
    if (faccessat(AT_FDCWD, m_strTarget.c_str(), W_OK, AT_EACCESS) != 0)
        return Refuse(errno);
    return OpenMirror(&old) || OpenOver(O_RDWR) || OpenOver(O_WRONLY) || Refuse(errno);
}

// False, with errno, if no new file can replace the old one.
bool CMirrorFile::OpenMirror(const struct stat* pOld)
{
    const std::string folder = FolderOf(m_strTarget);
    RemoveLeftovers(folder);
    if (pOld != nullptr && HasOtherNames(m_strTarget, *pOld))
        return false;
    m_hFile = MakeNewFile(folder, pOld != nullptr ? ownersOnly : newFileMode, m_strMirrorName);
    if (m_hFile == hFileNull) {
        m_strMirrorName.clear();
        return false;
    }
    if (pOld == nullptr || CopyPermissions(m_hFile, m_strTarget, *pOld))
        return true;
    CMirrorFile::Abort();
    return false;
}

bool CMirrorFile::OpenOver(int nFlags)
{
    m_bOverwrites = OpenNative(m_strTarget, nFlags) != FALSE;
    return m_bOverwrites;
}

// False for an unusable path; raises the file exception for any other error.
bool CMirrorFile::Refuse(int error) const
{
    if (!IsUnusablePath(error))
        ThrowSystemError(error);
    return false;
}

void CMirrorFile::Close()
{
    if (m_hFile == hFileNull)
        return;
    HandOver();
    const int error = WithFrameworkMemory([this] {
        if (!m_strMirrorName.empty())
            return CloseMirror();
        if (m_bOverwrites) {
            KeepAsPrevious(m_strTarget, Keeping::byCopy);
            return Overwrite(m_hFile, m_strContents);
        }
        return fsync(m_hFile) == 0 || errno == EINVAL || errno == EROFS ? 0 : errno; // devices can't sync
    });
    if (error != 0)
        ThrowSystemError(error);
    CFile::Close();
}

// Returns errno, or 0.
int CMirrorFile::CloseMirror()
{
    if (fsync(m_hFile) != 0)
        return errno;
    KeepAsPrevious(m_strTarget, Keeping::byLink);
    if (rename(m_strMirrorName.c_str(), m_strTarget.c_str()) != 0) {
        const int refusal = errno;
        if (!IsRefusal(refusal) ||
            ReadWholeFile(m_strMirrorName, std::numeric_limits<std::size_t>::max(), m_strContents) != nullptr)
            return refusal;
        CFile::Abort(); // the new file: its contents have been read back
        unlink(m_strMirrorName.c_str());
        if (!OpenOver(O_RDWR) && !OpenOver(O_WRONLY))
            return refusal;
        KeepAsPrevious(m_strTarget, Keeping::byCopy);
        return Overwrite(m_hFile, m_strContents);
    }
    FlushFolder(FolderOf(m_strTarget));
    return 0;
}

void CMirrorFile::Abort()
{
    if (m_hFile != hFileNull && !m_strMirrorName.empty())
        unlink(m_strMirrorName.c_str());
    m_strMirrorName.clear();
    CFile::Abort();
}
