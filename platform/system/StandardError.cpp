#include "StandardError.h"

#include "SignalGuard.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <poll.h>
#include <unistd.h>

namespace
{

constexpr int maxWait = 1000; // milliseconds

} // namespace

void WriteToStandardError(std::string_view line) noexcept
{
    const SignalGuard guard;
    while (!line.empty()) {
        pollfd standardError{STDERR_FILENO, POLLOUT, 0};
        const int ready = poll(&standardError, 1, maxWait);
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready != 1 || (standardError.revents & POLLOUT) == 0)
            return;
        // A ready pipe accepts this much without blocking.
        const ssize_t written =
            write(STDERR_FILENO, line.data(), std::min<std::size_t>(line.size(), PIPE_BUF));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return;
        line.remove_prefix(static_cast<std::size_t>(written));
    }
}
