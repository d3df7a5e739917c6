#include "Links.h"
#include "Memory.h"
#include "OldFile.h"
#include "Paths.h"

#include <cerrno>
#include <windows.h>

namespace
{

thread_local LONG lastError = ERROR_SUCCESS;

LONG ErrorOf(int error)
{
    switch (error) {
    case 0:
        return ERROR_SUCCESS;
    case ENOENT:
    case ENOTDIR:
        return ERROR_FILE_NOT_FOUND;
    case EEXIST:
        return ERROR_FILE_EXISTS;
    default:
        return ERROR_ACCESS_DENIED;
    }
}

} // namespace

BOOL CopyFileW(LPCWSTR existing, LPCWSTR copy, BOOL /*failIfExists*/)
{
    lastError = WithFrameworkMemory([=] {
        errno = ENOENT; // for an empty path
        const std::string from = FollowLinks(NativePath(existing));
        return ErrorOf(from.empty() ? errno : CopyUnder(from, NativePath(copy)));
    });
    return lastError == ERROR_SUCCESS ? TRUE : FALSE;
}

DWORD GetLastError()
{
    return static_cast<DWORD>(lastError);
}
