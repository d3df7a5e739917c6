// The registered messages that pass between colour popup, colour button and dialog. The wParam of each is a
// COLORREF; the lParam is 0 from the popup and the control id from the button.
#pragma once

#include <windows.h>

AFX_EXT_DATA extern UINT g_msgSelChange; // the hot cell moved, and stands for this colour
AFX_EXT_DATA extern UINT g_msgDropdown;  // the button opened the popup
AFX_EXT_DATA extern UINT g_msgCloseUp;   // the popup has ended
AFX_EXT_DATA extern UINT g_msgSelEndOK;  // the popup ended with a choice
AFX_EXT_DATA extern UINT
    g_msgSelEndChange; // the popup ended without a choice; the colour is that at its opening
