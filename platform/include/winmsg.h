// Messages. Names, values and contracts are those of Windows; the bodies are in platform/user.
#pragma once

#include <windef.h>

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
constexpr UINT WM_NOTIFY = 0x004E;
constexpr UINT WM_CONTEXTMENU = 0x007B;
constexpr UINT WM_NCDESTROY = 0x0082;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_TIMER = 0x0113;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
constexpr UINT WM_RBUTTONDOWN = 0x0204;
constexpr UINT WM_RBUTTONUP = 0x0205;
constexpr UINT WM_MOUSEWHEEL = 0x020A;
constexpr UINT WM_MOUSEHWHEEL = 0x020E; // sideways; positive to the right
constexpr UINT WM_QUERYNEWPALETTE = 0x030F;
constexpr UINT WM_PALETTECHANGED = 0x0311;

// Keys of WM_KEYDOWN.
constexpr UINT VK_TAB = 9;
constexpr UINT VK_RETURN = 13;
constexpr UINT VK_ESCAPE = 27;
constexpr UINT VK_SPACE = 32;
constexpr UINT VK_LEFT = 37;
constexpr UINT VK_UP = 38;
constexpr UINT VK_RIGHT = 39;
constexpr UINT VK_DOWN = 40;
constexpr UINT VK_MULTIPLY = 106; // the number pad's asterisk
constexpr UINT VK_ADD = 107;      // the number pad's plus
constexpr UINT VK_SUBTRACT = 109; // the number pad's minus

// Bits of wParam in mouse messages.
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

// The header of what lParam of WM_NOTIFY points to.
struct NMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};

// Gives the result of the window procedure.
LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// The position of the mouse at the input that is being handled, in screen coordinates: x in the low word, y
// in the high, both signed.
DWORD GetMessagePos();
