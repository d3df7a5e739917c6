// The application object that windows need.
#pragma once

#include <windef.h>

class QWidget;

// Whether windows can be shown by this thread. Makes the application object where the program has none,
// unless there is no display; then its thread is the one for windows.
bool EnsureApplication();

// The top-level widget that a dialog stands before: that of the owner, if it is a window, else the program's
// active one; null if there is none.
QWidget* DialogOwner(HWND owner);
