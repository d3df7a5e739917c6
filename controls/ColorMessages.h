// The registered messages between colour popup, colour button and dialog. The wParam of each is a COLORREF;
// the lParam is 0 from the popup and the control id from the button.
#pragma once

#include <windows.h>

AFX_EXT_DATA extern UINT g_msgSelChange;    // the hot cell changed; its colour
AFX_EXT_DATA extern UINT g_msgDropdown;     // the button opened the popup
AFX_EXT_DATA extern UINT g_msgCloseUp;      // the popup has closed
AFX_EXT_DATA extern UINT g_msgSelEndOK;     // the popup closed with a choice
AFX_EXT_DATA extern UINT g_msgSelEndChange; // the popup closed without a choice; the initial colour
