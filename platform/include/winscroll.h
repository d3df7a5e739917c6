// Scrolling: of windows with scroll bars of their own, and of the scroll bar as a control.
#pragma once

#include <winwnd.h>

constexpr UINT WM_HSCROLL = 0x0114; // low half of wParam a code, high half a position, lParam the control

constexpr UINT SB_LINELEFT = 0;
constexpr UINT SB_LINERIGHT = 1;
constexpr UINT SB_PAGELEFT = 2;
constexpr UINT SB_PAGERIGHT = 3;
constexpr UINT SB_THUMBPOSITION = 4;
constexpr UINT SB_THUMBTRACK = 5;
constexpr UINT SB_LEFT = 6;
constexpr UINT SB_RIGHT = 7;
constexpr UINT SB_ENDSCROLL = 8;

// Which bar: the window's own one, or the window itself.
constexpr int SB_VERT = 1;
constexpr int SB_CTL = 2;

constexpr DWORD SBS_BOTTOMALIGN = 0x0004;

constexpr UINT SIF_RANGE = 0x0001;
constexpr UINT SIF_PAGE = 0x0002;
constexpr UINT SIF_POS = 0x0004;
constexpr UINT SIF_ALL = SIF_RANGE | SIF_PAGE | SIF_POS;

// The range is nMin to nMax, both included, of which nPage are visible; the maximum position is nMax - nPage
// + 1.
struct SCROLLINFO {
    UINT cbSize;
    UINT fMask;
    int nMin;
    int nMax;
    UINT nPage;
    int nPos;
    int nTrackPos; // while the user drags the thumb
};
using LPSCROLLINFO = SCROLLINFO*;
using LPCSCROLLINFO = const SCROLLINFO*;

// Gets or sets what fMask names. False for a window without such a bar. If all is visible, nMin equals nMax.
// SetScrollInfo supports SB_CTL only, and gives the new position.
BOOL GetScrollInfo(HWND window, int bar, LPSCROLLINFO info);
int SetScrollInfo(HWND window, int bar, LPCSCROLLINFO info, BOOL redraw);
int GetScrollPos(HWND window, int bar);
