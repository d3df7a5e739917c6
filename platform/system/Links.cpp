#include "Links.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr int maxLinks = 40; // the system's own limit

// The system's own rule, where fs.protected_symlinks is set.
bool IsTrusted(const struct stat& link, const std::string& folder)
{
    struct stat parent {
    };
    if (stat(folder.empty() ? "." : folder.c_str(), &parent) != 0)
        return false;
    const bool isShared = (parent.st_mode & S_ISVTX) != 0 && (parent.st_mode & S_IWOTH) != 0;
    return !isShared || link.st_uid == geteuid() || link.st_uid == parent.st_uid;
}

} // namespace

std::string FollowLinks(const std::string& path)
{
    std::string done; // without links; ends with a slash unless it is empty
    std::string rest = path;
    for (int links = 0; !rest.empty();) {
        const std::size_t end = std::min(rest.find('/'), rest.size());
        const std::size_t next = std::min(rest.find_first_not_of('/', end), rest.size());
        const std::string reached = done + rest.substr(0, end);
        const std::string slash = next > end ? "/" : "";
        struct stat status {
        };
        if (end == 0 || lstat(reached.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) {
            done = reached + slash;
            rest.erase(0, next);
            continue;
        }
        std::array<char, 4096> target;
        const ssize_t length = readlink(reached.c_str(), target.data(), target.size());
        const bool isWhole = length >= 0 && static_cast<std::size_t>(length) < target.size();
        const bool isTrusted = IsTrusted(status, done);
        if (!isWhole || !isTrusted || ++links > maxLinks) {
            errno = isTrusted ? ELOOP : EACCES;
            return {};
        }
        rest.replace(0, next, std::string(target.data(), static_cast<std::size_t>(length)) + slash);
        if (rest.starts_with('/'))
            done.clear();
    }
    return done;
}
