// The door through which message boxes leave the library. Where a user interface is part of the program it
// puts a door of its own here; else messages go to standard error.
#pragma once

#include <windows.h>

// Gives the user's answer, or 0 where it can't show the message: then that goes to standard error.
using MessageDoor = int (*)(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

// Puts a door in place and gives the one before it; null is standard error.
PLATFORM_API MessageDoor SetMessageDoor(MessageDoor door);
MessageDoor CurrentMessageDoor();
