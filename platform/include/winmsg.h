// Windows and messages. Names, values and contracts are those of Windows; the bodies are in platform/user.
//
// A window is a widget of Qt's underneath, and what happens to the widget reaches the window as a message. A
// null handle, and one whose window is gone, makes every function fail, that is give 0. Coordinates are
// pixels.
#pragma once

#include <wingdi.h>

using WPARAM = UINT_PTR;
using LPARAM = INT_PTR;
using LRESULT = INT_PTR;

constexpr WORD LOWORD(UINT_PTR value)
{
    return static_cast<WORD>(value);
}
constexpr WORD HIWORD(UINT_PTR value)
{
    return static_cast<WORD>(value >> 16);
}
constexpr WPARAM MAKEWPARAM(UINT low, UINT high)
{
    return static_cast<DWORD>((low & 0xFFFF) | (high << 16));
}
constexpr LPARAM MAKELPARAM(int low, int high)
{
    return static_cast<LPARAM>(static_cast<DWORD>((low & 0xFFFF) | (high << 16)));
}

// ---- Messages

constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_ENABLE = 0x000A;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_ERASEBKGND = 0x0014;
constexpr UINT WM_SETTINGCHANGE = 0x001A;
constexpr UINT WM_ACTIVATEAPP = 0x001C;
constexpr UINT WM_DRAWITEM = 0x002B;
constexpr UINT WM_MEASUREITEM = 0x002C;
constexpr UINT WM_SETFONT = 0x0030;
constexpr UINT WM_GETFONT = 0x0031;
constexpr UINT WM_COMPAREITEM = 0x0039;
constexpr UINT WM_NOTIFY = 0x004E;
constexpr UINT WM_CONTEXTMENU = 0x007B;
constexpr UINT WM_NCDESTROY = 0x0082;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_INITDIALOG = 0x0110;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_TIMER = 0x0113;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
constexpr UINT WM_RBUTTONDOWN = 0x0204;
constexpr UINT WM_RBUTTONUP = 0x0205;
constexpr UINT WM_MOUSEWHEEL = 0x020A;
constexpr UINT WM_QUERYNEWPALETTE = 0x030F;
constexpr UINT WM_PALETTECHANGED = 0x0311;
constexpr UINT WM_USER = 0x0400;

// Keys of WM_KEYDOWN.
constexpr UINT VK_TAB = 9;
constexpr UINT VK_RETURN = 13;
constexpr UINT VK_ESCAPE = 27;
constexpr UINT VK_SPACE = 32;
constexpr UINT VK_LEFT = 37;
constexpr UINT VK_UP = 38;
constexpr UINT VK_RIGHT = 39;
constexpr UINT VK_DOWN = 40;
constexpr UINT VK_ADD = 107;      // the number pad's plus
constexpr UINT VK_SUBTRACT = 109; // the number pad's minus

// Bits of the wParam of mouse messages.
constexpr WPARAM MK_LBUTTON = 1;
constexpr WPARAM MK_RBUTTON = 2;
constexpr WPARAM MK_SHIFT = 4;
constexpr WPARAM MK_CONTROL = 8;

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt; // of the mouse, in screen coordinates
};

// Hands a message to the window's procedure and gives its answer.
LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Where the mouse was, in screen coordinates, when the input that is being handled happened: x in the low
// word, y in the high, both signed.
DWORD GetMessagePos();

// ---- Windows

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

constexpr int GWL_ID = -12;

BOOL IsWindow(HWND window);
LONG GetWindowLongW(HWND window, int index);       // of GWL_ID, the window's id
BOOL GetWindowRect(HWND window, LPRECT rectangle); // in screen coordinates
BOOL GetClientRect(HWND window, LPRECT rectangle); // left and top are 0
BOOL ScreenToClient(HWND window, LPPOINT point);
BOOL ClientToScreen(HWND window, LPPOINT point);
HWND GetParent(HWND window);          // of a popup, its owner
HWND GetDlgItem(HWND window, int id); // the window in it that has the id; null if there is none

constexpr int SW_HIDE = 0;
constexpr int SW_SHOW = 5;

// The text in a window, cut to count characters with the terminating zero, and its length there; the caption
// of one with a frame.
int GetWindowTextW(HWND window, LPWSTR text, int count);
BOOL SetWindowTextW(HWND window, LPCWSTR text);

// Calls for each window in a window, and in those, with the argument, until the callback gives FALSE. A
// window that goes meanwhile is left out.
using WNDENUMPROC = BOOL(CALLBACK*)(HWND window, LPARAM argument);
BOOL EnumChildWindows(HWND window, WNDENUMPROC callback, LPARAM argument);

constexpr UINT RDW_INVALIDATE = 0x0001;
constexpr UINT RDW_ERASE = 0x0004;
constexpr UINT RDW_UPDATENOW = 0x0100;

// Asks for the rectangle, null for all of the window, to be painted again: soon, or before the call returns.
BOOL InvalidateRect(HWND window, LPCRECT rectangle, BOOL erase);
BOOL RedrawWindow(HWND window, LPCRECT rectangle, HANDLE region, UINT flags);
BOOL UpdateWindow(HWND window); // paints now what is invalid

// Keeps what the window and those in it show as it is until the lock is given back, by null; then what became
// invalid meanwhile is painted. Fails while another window is locked. A window that goes gives its lock back.
BOOL LockWindowUpdate(HWND window);

// A context on all of the window, frame included; to be given back.
HDC GetWindowDC(HWND window);
int ReleaseDC(HWND window, HDC context);

// ---- The desktop

constexpr int SM_CXSCREEN = 0;
constexpr int SM_CYSCREEN = 1;
constexpr int SM_CXVSCROLL = 2;
constexpr int SM_CYHSCROLL = 3;
constexpr int SM_CYVTHUMB = 9;
constexpr int SM_CXHTHUMB = 10;
constexpr int SM_CXEDGE = 45;
constexpr int SM_CYEDGE = 46;

// 0 for a metric that isn't named above.
int GetSystemMetrics(int index);

struct NONCLIENTMETRICSW {
    UINT cbSize;
    int iBorderWidth;
    int iScrollWidth;
    int iScrollHeight;
    int iCaptionWidth;
    int iCaptionHeight;
    LOGFONTW lfCaptionFont;
    int iSmCaptionWidth;
    int iSmCaptionHeight;
    LOGFONTW lfSmCaptionFont;
    int iMenuWidth;
    int iMenuHeight;
    LOGFONTW lfMenuFont;
    LOGFONTW lfStatusFont;
    LOGFONTW lfMessageFont;
    int iPaddedBorderWidth;
};
static_assert(sizeof(NONCLIENTMETRICSW) == 504);

constexpr UINT SPI_GETNONCLIENTMETRICS = 41;

// Fills the fonts with the desktop's. Knows SPI_GETNONCLIENTMETRICS for a structure of 504 or 500 bytes; the
// shorter one has no last member.
BOOL SystemParametersInfoW(UINT action, UINT size, void* data, UINT update);

struct OSVERSIONINFOW {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
};
BOOL GetVersionExW(OSVERSIONINFOW* version); // 10.0

// ---- Owner draw

constexpr UINT ODT_COMBOBOX = 3;
constexpr UINT ODT_BUTTON = 4;
constexpr UINT ODA_DRAWENTIRE = 1;
constexpr UINT ODA_SELECT = 2;
constexpr UINT ODA_FOCUS = 4;
constexpr UINT ODS_SELECTED = 0x0001;
constexpr UINT ODS_DISABLED = 0x0004;
constexpr UINT ODS_FOCUS = 0x0010;
constexpr UINT ODS_COMBOBOXEDIT = 0x1000;

struct DRAWITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemAction;
    UINT itemState;
    HWND hwndItem;
    HDC hDC;
    RECT rcItem;
    UINT_PTR itemData;
};

struct MEASUREITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemWidth;
    UINT itemHeight;
    UINT_PTR itemData;
};

struct COMPAREITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    HWND hwndItem;
    UINT itemID1;
    UINT_PTR itemData1;
    UINT itemID2;
    UINT_PTR itemData2;
    DWORD dwLocaleId;
};

// The head of what WM_NOTIFY carries.
struct NMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};

using LPDRAWITEMSTRUCT = DRAWITEMSTRUCT*;
using LPMEASUREITEMSTRUCT = MEASUREITEMSTRUCT*;
using LPCOMPAREITEMSTRUCT = COMPAREITEMSTRUCT*;

// ---- Statics, buttons and combo boxes

constexpr DWORD SS_LEFT = 0x0000; // as many lines as it takes
constexpr DWORD SS_LEFTNOWORDWRAP = 0x000C;
constexpr DWORD SS_TYPEMASK = 0x001F;
constexpr DWORD SS_PATHELLIPSIS = 0x8000;
constexpr DWORD SS_ELLIPSISMASK = 0xC000;

constexpr UINT BN_CLICKED = 0;
constexpr DWORD BS_PUSHBUTTON = 0x0000;
constexpr DWORD BS_DEFPUSHBUTTON = 0x0001;
constexpr DWORD BS_AUTOCHECKBOX = 0x0003;
constexpr DWORD BS_AUTO3STATE = 0x0006;
constexpr DWORD BS_GROUPBOX = 0x0007;
constexpr DWORD BS_OWNERDRAW = 0x000B;
constexpr DWORD BS_TYPEMASK = 0x000F;
constexpr WPARAM BST_UNCHECKED = 0;
constexpr WPARAM BST_CHECKED = 1;
constexpr WPARAM BST_INDETERMINATE = 2;
constexpr UINT BM_GETCHECK = 0x00F0;
constexpr UINT BM_SETCHECK = 0x00F1;
constexpr UINT BM_SETSTYLE = 0x00F4;
constexpr DWORD CBS_DROPDOWN = 0x0002;
constexpr DWORD CBS_DROPDOWNLIST = 0x0003;
constexpr DWORD CBS_OWNERDRAWVARIABLE = 0x0020;
constexpr DWORD CBS_HASSTRINGS = 0x0200;
constexpr UINT CBN_SELCHANGE = 1;
constexpr UINT CB_ADDSTRING = 0x0143;
constexpr UINT CB_GETCOUNT = 0x0146;
constexpr UINT CB_GETCURSEL = 0x0147;
constexpr UINT CB_GETLBTEXT = 0x0148;
constexpr UINT CB_GETLBTEXTLEN = 0x0149;
constexpr UINT CB_INSERTSTRING = 0x014A;
constexpr UINT CB_SELECTSTRING = 0x014D;
constexpr UINT CB_SETCURSEL = 0x014E;
constexpr UINT CB_GETITEMDATA = 0x0150;
constexpr UINT CB_SETITEMDATA = 0x0151;
constexpr LRESULT CB_ERR = -1;

// ---- Tooltips and the colour dialog

constexpr UINT TTM_RELAYEVENT = 0x0407;

constexpr DWORD CC_RGBINIT = 0x0001;
constexpr DWORD CC_FULLOPEN = 0x0002;
constexpr DWORD CC_ANYCOLOR = 0x0100;
constexpr COLORREF CLR_DEFAULT = 0xFF000000;

struct CHOOSECOLORW {
    DWORD lStructSize;
    HWND hwndOwner;
    HWND hInstance;
    COLORREF rgbResult;
    COLORREF* lpCustColors; // 16 of them, shown and updated in place; null for none
    DWORD Flags;
    LPARAM lCustData;
    void* lpfnHook;
    LPCWSTR lpTemplateName;
};
