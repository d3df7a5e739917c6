#include "StandardError.h"

#include "SignalGuard.h"

#include <cerrno>
#include <poll.h>
#include <unistd.h>

namespace
{

constexpr int longestWait = 1000; // milliseconds

} // namespace

void WriteToStandardError(std::string_view line) noexcept
{
    const SignalGuard guard;
    pollfd standardError{STDERR_FILENO, POLLOUT, 0};
    int ready = 0;
    do
        ready = poll(&standardError, 1, longestWait);
    while (ready < 0 && errno == EINTR);
    if (ready != 1 || (standardError.revents & POLLOUT) == 0)
        return;
    while (write(STDERR_FILENO, line.data(), line.size()) < 0 && errno == EINTR) {
    }
}
