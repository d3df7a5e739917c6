#include <afx.h>

#include "Descriptors.h"
#include "Memory.h"
#include "Paths.h"
#include "SignalGuard.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{

constexpr int commonFlags = O_NOCTTY | O_NONBLOCK; // opening never blocks

CFileException::Cause CauseOf(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return CFileException::fileNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
        return CFileException::accessDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return CFileException::diskFull;
    case EIO:
        return CFileException::hardIO;
    default:
        return CFileException::genericException;
    }
}

bool HasSizeLimit()
{
    rlimit limit{};
    return getrlimit(RLIMIT_FSIZE, &limit) != 0 || limit.rlim_cur != RLIM_INFINITY;
}

} // namespace

CFile::~CFile()
{
    CFile::Abort();
}

BOOL CFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags)
{
    const int create = (nOpenFlags & modeCreate) != 0 ? O_CREAT | O_TRUNC : 0;
    const int flags = (nOpenFlags & modeWrite) != 0 ? O_WRONLY | create : O_RDONLY;
    if (!OpenNative(WithFrameworkMemory([&] { return NativePath(lpszFileName); }), flags))
        return FALSE;
    m_strFileName = lpszFileName;
    return TRUE;
}

BOOL CFile::OpenNative(const std::string& path, int flags, UINT mode)
{
    Descriptor file(OpenFile(path.c_str(), flags | commonFlags, mode));
    if (!file)
        return FALSE;
    struct stat status {
    };
    const bool writing = (flags & O_ACCMODE) != O_RDONLY;
    const bool isUsable =
        fstat(file.Get(), &status) == 0 && (S_ISREG(status.st_mode) || (writing && S_ISCHR(status.st_mode)));
    if (!isUsable) {
        errno = EINVAL;
        return FALSE;
    }
    m_hFile = file.Release();
    return TRUE;
}

UINT CFile::Read(void* lpBuf, UINT nCount)
{
    UINT total = 0;
    while (total < nCount) {
        const ssize_t got = read(m_hFile, static_cast<BYTE*>(lpBuf) + total, nCount - total);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            ThrowSystemError(errno);
        if (got == 0)
            break;
        total += static_cast<UINT>(got);
    }
    return total;
}

void CFile::Write(const void* lpBuf, UINT nCount)
{
    int error = 0;
    {
        // Writes to ordinary files and devices raise a signal only past a size limit.
        std::optional<SignalGuard> guard;
        if (HasSizeLimit())
            guard.emplace();
        UINT total = 0;
        while (total < nCount && error == 0) {
            const ssize_t put = write(m_hFile, static_cast<const BYTE*>(lpBuf) + total, nCount - total);
            if (put > 0)
                total += static_cast<UINT>(put);
            else if (put == 0) // a device that accepts nothing and reports no error
                error = EIO;
            else if (errno != EINTR)
                error = errno;
        }
    }
    if (error != 0)
        ThrowSystemError(error);
}

ULONGLONG CFile::GetLength() const
{
    struct stat status {
    };
    if (fstat(m_hFile, &status) != 0)
        ThrowSystemError(errno);
    return static_cast<ULONGLONG>(status.st_size);
}

void CFile::Close()
{
    if (m_hFile == hFileNull)
        return;
    if (close(std::exchange(m_hFile, int{hFileNull})) != 0 && errno != EINTR) // which closes it, too
        ThrowSystemError(errno);
}

void CFile::Abort()
{
    const Descriptor closed(std::exchange(m_hFile, int{hFileNull}));
}

void CFile::ThrowSystemError(int error) const
{
    AfxThrowFileException(CauseOf(error), error, m_strFileName);
}
