#include "MessageDoor.h"

#include "SignalGuard.h"
#include "Unicode.h"

#include <algorithm>
#include <climits>
#include <new>
#include <poll.h>
#include <string_view>
#include <unistd.h>

namespace
{

constexpr int longestWait = 1000; // milliseconds that a reader of standard error may let the host wait

MessageDoor currentDoor = nullptr;

int WriteToStandardError(HWND /*owner*/, LPCWSTR text, LPCWSTR caption, UINT /*type*/)
{
    const std::string line = ToUtf8(caption) + ": " + ToUtf8(text) + '\n';
    const SignalGuard guard;
    std::string_view rest = line;
    while (!rest.empty()) {
        pollfd standardError{STDERR_FILENO, POLLOUT, 0};
        if (poll(&standardError, 1, longestWait) != 1 || (standardError.revents & POLLOUT) == 0)
            break;
        // A pipe that is ready takes this much without waiting.
        const ssize_t written = write(STDERR_FILENO, rest.data(), std::min<std::size_t>(rest.size(), PIPE_BUF));
        if (written <= 0)
            break;
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
    return IDOK;
}

} // namespace

MessageDoor SetMessageDoor(MessageDoor door)
{
    const MessageDoor before = currentDoor;
    currentDoor = door;
    return before;
}

int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    try {
        return (currentDoor ? currentDoor : WriteToStandardError)(owner, text, caption, type);
    } catch (const std::bad_alloc&) {
        return 0;
    }
}
