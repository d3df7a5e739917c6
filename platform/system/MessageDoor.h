// The door through which message boxes leave the library. Where a program has a display, its user interface
// puts a door of its own here; else messages go to standard error.
#pragma once

#include <windows.h>

using MessageDoor = int (*)(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

// Puts a door in place and gives the one before it; null is standard error.
MessageDoor SetMessageDoor(MessageDoor door);
