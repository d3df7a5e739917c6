#include "MessageBoxHook.h"

#include "StandardError.h"
#include "Unicode.h"

#include <new>

namespace
{

constexpr int notShown = 0;

constinit MessageBoxHook currentHook = nullptr; // hooks are installed by static objects of other sources

} // namespace

MessageBoxHook SetMessageBoxHook(MessageBoxHook hook)
{
    const MessageBoxHook previous = currentHook;
    currentHook = hook;
    return previous;
}

MessageBoxHook CurrentMessageBoxHook()
{
    return currentHook;
}

int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    try {
        const int answer = currentHook != nullptr ? currentHook(owner, text, caption, type) : notShown;
        if (answer != notShown)
            return answer;
        WriteToStandardError(ToUtf8(caption) + ": " + ToUtf8(text) + '\n');
        return IDOK;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}
