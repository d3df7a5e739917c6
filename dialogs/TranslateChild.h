// The translation of a dialog.
#pragma once

#include <windows.h>

// A callback of EnumChildWindows: replaces the text of a control by its translation. Only the first 255
// characters of the text count. Always TRUE, to continue.
BOOL CALLBACK TranslateChildProc(HWND child, LPARAM argument);
