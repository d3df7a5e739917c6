// Message boxes of a module whose windows are in an extension module: the first message that somebody could
// see loads it, and it puts its own door in place. This source is one of the module, and in no library.
#include "DisplayNames.h"
#include "MessageDoor.h"

#include <afxwin.h>
#include <unistd.h>

namespace
{

constexpr int notShown = 0;

// The libraries of windows take the thread that loads them for the one that windows belong to. Where the
// program has none yet, that is its first one.
bool MayLoadWindows()
{
    return gettid() == getpid() || HasWindowLibrary();
}

int LoadAndShow(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    if (!MayLoadWindows() || AfxLoadLibrary(PLATFORM_EXTENSION_MODULE) == nullptr)
        return notShown;
    const MessageDoor loaded = CurrentMessageDoor();
    return loaded != nullptr && loaded != &LoadAndShow ? loaded(owner, text, caption, type) : notShown;
}

[[maybe_unused]] const MessageDoor standardError = SetMessageDoor(&LoadAndShow);

} // namespace
