// The texts of a dialog in the user's language.
#pragma once

#include <windows.h>

// For EnumChildWindows: replaces the text of a control by its translation, and has the walk go on. Of a text
// the first 255 characters count.
BOOL CALLBACK TranslateChildProc(HWND child, LPARAM argument);
