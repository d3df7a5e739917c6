// Windows. Names, values and contracts are those of Windows; the bodies are in platform/user.
//
// Underneath, a window is a widget of Qt's. A function fails, that is gives 0, for a null handle and for one
// whose window is gone. Coordinates are pixels.
#pragma once

#include <winmsg.h>

constexpr DWORD WS_POPUP = 0x80000000;
constexpr DWORD WS_CHILD = 0x40000000;
constexpr DWORD WS_VISIBLE = 0x10000000;
constexpr DWORD WS_DISABLED = 0x08000000;
constexpr DWORD WS_BORDER = 0x00800000;
constexpr DWORD WS_VSCROLL = 0x00200000;
constexpr DWORD WS_HSCROLL = 0x00100000;
constexpr DWORD WS_TABSTOP = 0x00010000;

constexpr UINT CS_VREDRAW = 0x0001;
constexpr UINT CS_HREDRAW = 0x0002;
constexpr UINT CS_CLASSDC = 0x0040;
constexpr UINT CS_SAVEBITS = 0x0800;

// lParam of WM_CREATE.
struct CREATESTRUCT {
    void* lpCreateParams;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
};
using LPCREATESTRUCT = CREATESTRUCT*;

constexpr int GWL_ID = -12;

BOOL IsWindow(HWND window);
LONG GetWindowLongW(HWND window, int index);       // of GWL_ID, the window's id
BOOL GetWindowRect(HWND window, LPRECT rectangle); // in screen coordinates
BOOL GetClientRect(HWND window, LPRECT rectangle); // left and top are 0
BOOL ScreenToClient(HWND window, LPPOINT point);
HWND GetParent(HWND window);          // of a popup, its owner
HWND GetDlgItem(HWND window, int id); // the direct child with the id; null if there is none

constexpr int SW_HIDE = 0;
constexpr int SW_SHOW = 5;

// Copies the text of a window, at most count characters with the terminator, and gives the length copied.
int GetWindowTextW(HWND window, LPWSTR text, int count);
BOOL SetWindowTextW(HWND window, LPCWSTR text);

// Calls back for all descendants of a window until the callback gives FALSE. A window that is destroyed
// meanwhile is left out.
using WNDENUMPROC = BOOL(CALLBACK*)(HWND window, LPARAM argument);
BOOL EnumChildWindows(HWND window, WNDENUMPROC callback, LPARAM argument);

constexpr UINT RDW_INVALIDATE = 0x0001;
constexpr UINT RDW_ERASE = 0x0004;
constexpr UINT RDW_UPDATENOW = 0x0100;

// Invalidates a rectangle, null for the whole client area, to be painted later or before the call returns.
BOOL InvalidateRect(HWND window, LPCRECT rectangle, BOOL erase);
BOOL RedrawWindow(HWND window, LPCRECT rectangle, HANDLE region, UINT flags);
BOOL UpdateWindow(HWND window); // paints the invalid part now

// Stops the painting of a window and its descendants until it is called with null; then the invalid parts are
// painted. Fails while another window is locked. A destroyed window is unlocked.
BOOL LockWindowUpdate(HWND window);

// A context on the whole window, to be released.
HDC GetWindowDC(HWND window);
int ReleaseDC(HWND window, HDC context);

BOOL ReleaseCapture(); // of the window that has it
