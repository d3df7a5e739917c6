#include "MessageDoor.h"

#include "StandardError.h"
#include "Unicode.h"

#include <algorithm>
#include <climits>
#include <new>
#include <poll.h>
#include <string_view>
#include <unistd.h>

namespace
{

MessageDoor currentDoor = nullptr;

int TellStandardError(HWND /*owner*/, LPCWSTR text, LPCWSTR caption, UINT /*type*/)
{
    WriteToStandardError(ToUtf8(caption) + ": " + ToUtf8(text) + '\n');
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
        return (currentDoor ? currentDoor : TellStandardError)(owner, text, caption, type);
    } catch (const std::bad_alloc&) {
        return 0;
    }
}
