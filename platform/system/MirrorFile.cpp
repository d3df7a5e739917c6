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

constexpr mode_t ownersOnly = 0600; // until the file has the permissions of the one that it replaces

// Of a name with which no file can be, which nobody needs to be told.
bool LeadsNowhere(int error)
{
    return error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG || error == ELOOP;
}

// Of a new file in the place of the old one: the file itself may be writable all the same, as one that
// somebody else owns in a sticky folder, or one that is mounted by itself.
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
    CMirrorFile::Abort();
    if ((nOpenFlags & modeCreate) == 0)
        return CFile::Open(lpszFileName, nOpenFlags);
    return WithFrameworkMemory([&] {
        m_strFileName = lpszFileName;
        return OpenForCreation(NativePath(lpszFileName)) ? TRUE : FALSE;
    });
}

bool CMirrorFile::OpenForCreation(const std::string& path)
{
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

// False, with errno, where no new file can take the place of the old one.
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

// False for a name that leads nowhere; raises the file exception for anything else.
bool CMirrorFile::Refuse(int error) const
{
    if (!LeadsNowhere(error))
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
        return fsync(m_hFile) == 0 || errno == EINVAL || errno == EROFS ? 0 : errno; // a device's nothing
    });
    if (error != 0)
        ThrowSystemError(error);
    m_bOverwrites = false;
    m_strContents.clear();
    CFile::Close();
}

// Gives what failed, 0 for nothing.
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
        CFile::Abort(); // the new file, of which all is known
        unlink(m_strMirrorName.c_str());
        m_strMirrorName.clear();
        if (!OpenOver(O_RDWR) && !OpenOver(O_WRONLY))
            return refusal;
        KeepAsPrevious(m_strTarget, Keeping::byCopy);
        return Overwrite(m_hFile, m_strContents);
    }
    m_strMirrorName.clear();
    FlushFolder(FolderOf(m_strTarget));
    return 0;
}

void CMirrorFile::Abort()
{
    if (m_hFile != hFileNull && !m_strMirrorName.empty())
        unlink(m_strMirrorName.c_str());
    m_strMirrorName.clear();
    m_strContents.clear();
    m_bOverwrites = false;
    CFile::Abort();
}
