// The application object that windows need.
#pragma once

#include <windef.h>

class QWidget;

// Whether windows can be shown by this thread. Makes the application object where the program has none,
// unless there is no display; then its thread is the one for windows.
bool EnsureApplication();

// The top-level widget that a dialog stands before: that of the owner, a window of the layer's or of the
// host's, else the program's active one; null if there is none, and before a foreign window, which is no
// widget.
QWidget* DialogOwner(HWND owner);
