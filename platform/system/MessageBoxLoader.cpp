// Loads the extension module with the windows at the first message box that the user can see; the module
// then installs its own hook. Compiled into the module that needs it, and into no library.
#include "DisplayNames.h"
#include "MessageBoxHook.h"

#include <afxwin.h>
#include <unistd.h>

namespace
{

constexpr int notShown = 0;

// Qt takes the thread that loads it for the one that windows belong to: the main thread, unless the program
// has loaded Qt already.
bool MayLoadWindows()
{
    return gettid() == getpid() || HasWindowLibrary();
}

int LoadAndShow(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    if (!MayLoadWindows() || AfxLoadLibrary(PLATFORM_EXTENSION_MODULE) == nullptr)
        return notShown;
    const MessageBoxHook loaded = CurrentMessageBoxHook();
    return loaded != nullptr && loaded != &LoadAndShow ? loaded(owner, text, caption, type) : notShown;
}

[[maybe_unused]] const MessageBoxHook previousHook = SetMessageBoxHook(&LoadAndShow);

} // namespace
