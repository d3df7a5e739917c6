#include "Permissions.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace
{

constexpr const char* accessList = "system.posix_acl_access";
constexpr mode_t permissionBits = 07777;
constexpr mode_t withoutIdentity = 0777;

// True if both files have the same access list afterwards, or none.
bool CopyAccessList(int file, const std::string& oldPath)
{
    const ssize_t size = getxattr(oldPath.c_str(), accessList, nullptr, 0);
    if (size < 0) {
        fremovexattr(file, accessList); // inherited from the folder
        return true;
    }
    std::vector<char> list(static_cast<std::size_t>(size));
    const ssize_t got = getxattr(oldPath.c_str(), accessList, list.data(), list.size());
    return got == size && fsetxattr(file, accessList, list.data(), list.size(), 0) == 0;
}

bool CopyOwner(int file, const struct stat& old)
{
    return fchown(file, old.st_uid, old.st_gid) == 0;
}

bool CopyGroup(int file, const struct stat& old)
{
    return fchown(file, static_cast<uid_t>(-1), old.st_gid) == 0;
}

} // namespace

bool CopyPermissions(int file, const std::string& oldPath, const struct stat& old)
{
    const bool hasOwner = CopyOwner(file, old);
    const bool hasGroup = hasOwner || CopyGroup(file, old);
    const bool hasList = CopyAccessList(file, oldPath);
    mode_t mode = old.st_mode & (hasOwner ? permissionBits : withoutIdentity);
    if (!hasGroup || !hasList)
        mode &= ~static_cast<mode_t>(S_IRWXG) | ((mode & S_IRWXO) << 3);
    fchmod(file, mode);
    return hasOwner && hasList;
}
