#include "MessageDoor.h"

#include "StandardError.h"
#include "Unicode.h"

#include <new>

namespace
{

constexpr int notShown = 0;

// Null before a door is put in place, which can be before the static objects of this source stand.
constinit MessageDoor currentDoor = nullptr;

} // namespace

MessageDoor SetMessageDoor(MessageDoor door)
{
    const MessageDoor before = currentDoor;
    currentDoor = door;
    return before;
}

MessageDoor CurrentMessageDoor()
{
    return currentDoor;
}

int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    try {
        const int answer = currentDoor != nullptr ? currentDoor(owner, text, caption, type) : notShown;
        if (answer != notShown)
            return answer;
        WriteToStandardError(ToUtf8(caption) + ": " + ToUtf8(text) + '\n');
        return IDOK;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}
