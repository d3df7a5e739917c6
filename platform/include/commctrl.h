// The common controls: messages and notifications. Names, values and layouts are those of Windows.
#pragma once

#include <winctrl.h>
#include <winheader.h>
#include <wintree.h>

// ---- Notifications of all controls

constexpr int NM_RCLICK = -5;
constexpr int NM_CUSTOMDRAW = -12;

// ---- Custom draw: a control asks its parent while it paints

constexpr DWORD CDDS_PREPAINT = 0x00001;
constexpr DWORD CDDS_ITEMPREPAINT = 0x10001;
constexpr DWORD CDDS_ITEMPOSTPAINT = 0x10002;
constexpr LRESULT CDRF_DODEFAULT = 0x00;
constexpr LRESULT CDRF_NOTIFYPOSTPAINT = 0x10; // of an item, after its drawing
constexpr LRESULT CDRF_NOTIFYITEMDRAW = 0x20;  // of each item, before its drawing
constexpr UINT CDIS_SELECTED = 0x01;
constexpr UINT CDIS_FOCUS = 0x10;

struct NMCUSTOMDRAW {
    NMHDR hdr;
    DWORD dwDrawStage;
    HDC hdc;
    RECT rc; // of the item, as wide as the client area
    UINT_PTR dwItemSpec;
    UINT uItemState;
    LPARAM lItemlParam;
};

struct NMTVCUSTOMDRAW {
    NMCUSTOMDRAW nmcd;
    COLORREF clrText; // the item's colours in its state
    COLORREF clrTextBk;
    int iLevel;
};

// ---- Tooltips

constexpr UINT TTM_RELAYEVENT = 0x0407;

// Ask a window with tooltips enabled for the text.
constexpr int TTN_NEEDTEXTA = -520;
constexpr int TTN_NEEDTEXTW = -530;
constexpr int tooltipTextSize = 80; // characters, the terminator included

struct NMTTDISPINFOA {
    NMHDR hdr;
    char* lpszText;
    char szText[tooltipTextSize];
    HMODULE hinst;
    UINT uFlags;
    LPARAM lParam;
};

struct NMTTDISPINFOW {
    NMHDR hdr;
    LPWSTR lpszText; // szText, unless the handler changes it
    WCHAR szText[tooltipTextSize];
    HMODULE hinst;
    UINT uFlags;
    LPARAM lParam;
};

// ---- The version of the controls

struct DLLVERSIONINFO {
    DWORD cbSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformID;
};
static_assert(sizeof(DLLVERSIONINFO) == 20);

// The entry DllGetVersion of comctl32.dll: version 6.0. A structure of another size gives E_INVALIDARG.
using DLLGETVERSIONPROC = HRESULT (*)(DLLVERSIONINFO*);
