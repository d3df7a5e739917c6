// The hook for message boxes. A user interface that is loaded into the program installs one; without a hook,
// messages go to standard error.
#pragma once

#include <windows.h>

// Returns the user's answer, or 0 if it can't show the message, which then goes to standard error.
using MessageBoxHook = int (*)(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

// Installs a hook, or none for null, and returns the previous one.
PLATFORM_API MessageBoxHook SetMessageBoxHook(MessageBoxHook hook);
MessageBoxHook CurrentMessageBoxHook();
