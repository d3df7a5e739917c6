#include "Links.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr int mostLinks = 40; // as many as the system itself follows

// As the system itself does where it is set up to protect links.
bool IsTrusted(const struct stat& link, const std::string& folder)
{
    struct stat holder {
    };
    if (stat(folder.empty() ? "." : folder.c_str(), &holder) != 0)
        return false;
    const bool isShared = (holder.st_mode & S_ISVTX) != 0 && (holder.st_mode & S_IWOTH) != 0;
    return !isShared || link.st_uid == geteuid() || link.st_uid == holder.st_uid;
}

} // namespace

std::string FollowLinks(const std::string& path)
{
    std::string done; // holds no link, and ends with a slash if it isn't empty
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
        if (!isWhole || !isTrusted || ++links > mostLinks) {
            errno = isTrusted ? ELOOP : EACCES;
            return {};
        }
        rest.replace(0, next, std::string(target.data(), static_cast<std::size_t>(length)) + slash);
        if (rest.starts_with('/'))
            done.clear();
    }
    return done;
}
