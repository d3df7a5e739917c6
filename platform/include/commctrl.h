// The common controls: what headers, trees and their notifications carry. Numbers and layouts are those of
// the Windows interface; only what this house uses stands here.
#pragma once

#include <winmsg.h>

// ---- Notifications that all controls know

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
    COLORREF clrText; // the item's colours, as its state makes them
    COLORREF clrTextBk;
    int iLevel;
};

// ---- Headers

constexpr DWORD HDS_BUTTONS = 0x0002;
constexpr DWORD HDS_FULLDRAG = 0x0080;

constexpr UINT HDM_GETITEMCOUNT = 0x1200;
constexpr UINT HDM_LAYOUT = 0x1205;
constexpr UINT HDM_INSERTITEMW = 0x120A;
constexpr UINT HDM_GETITEMW = 0x120B;

constexpr UINT HDI_WIDTH = 0x0001;
constexpr UINT HDI_TEXT = 0x0002;
constexpr UINT HDI_FORMAT = 0x0004;

struct HDITEMW {
    UINT mask;
    int cxy; // width
    LPWSTR pszText;
    HBITMAP hbm;
    int cchTextMax;
    int fmt;
    LPARAM lParam;
};

struct WINDOWPOS {
    HWND hwnd;
    HWND hwndInsertAfter;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags;
};

// Goes with HDM_LAYOUT: the rectangle to lay the header out in, and where the header then goes.
struct HDLAYOUT {
    RECT* prc;
    WINDOWPOS* pwpos;
};

constexpr int HDN_ITEMCHANGINGW = -320; // a result other than 0 refuses the change
constexpr int HDN_ITEMCHANGEDW = -321;
constexpr int HDN_ITEMCLICKW = -322;
constexpr int HDN_ITEMDBLCLICKW = -323;

struct NMHEADERW {
    NMHDR hdr;
    int iItem;
    int iButton; // 0: the left one
    HDITEMW* pitem;
};

// ---- Trees

using HTREEITEM = struct TREEITEM__*;

// Stand for a place; no row has such a handle.
inline const auto TVI_ROOT = reinterpret_cast<HTREEITEM>(static_cast<INT_PTR>(-0x10000)); // NOLINT
inline const auto TVI_LAST = reinterpret_cast<HTREEITEM>(static_cast<INT_PTR>(-0x0FFFE)); // NOLINT

constexpr DWORD TVS_HASBUTTONS = 0x0001;
constexpr DWORD TVS_HASLINES = 0x0002;
constexpr DWORD TVS_LINESATROOT = 0x0004;
constexpr DWORD TVS_TRACKSELECT = 0x0200;
constexpr DWORD TVS_INFOTIP = 0x0800;
constexpr DWORD TVS_FULLROWSELECT = 0x1000;

constexpr UINT TVM_DELETEITEM = 0x1101;
constexpr UINT TVM_EXPAND = 0x1102;
constexpr UINT TVM_GETITEMRECT = 0x1104;
constexpr UINT TVM_GETNEXTITEM = 0x110A;
constexpr UINT TVM_SELECTITEM = 0x110B;
constexpr UINT TVM_HITTEST = 0x1111;
constexpr UINT TVM_ENSUREVISIBLE = 0x1114;
constexpr UINT TVM_INSERTITEMW = 0x1132;
constexpr UINT TVM_GETITEMW = 0x113E;
constexpr UINT TVM_SETITEMW = 0x113F;

constexpr UINT TVIF_TEXT = 0x0001;
constexpr UINT TVIF_PARAM = 0x0004;
constexpr UINT TVIF_STATE = 0x0008;
constexpr UINT TVIF_HANDLE = 0x0010;
constexpr UINT TVIF_CHILDREN = 0x0040;

constexpr UINT TVIS_SELECTED = 0x0002;
constexpr UINT TVIS_EXPANDED = 0x0020;

constexpr WPARAM TVE_COLLAPSE = 1;
constexpr WPARAM TVE_EXPAND = 2;

constexpr UINT TVGN_ROOT = 0; // the first row
constexpr UINT TVGN_NEXT = 1;
constexpr UINT TVGN_PARENT = 3;
constexpr UINT TVGN_CHILD = 4;
constexpr UINT TVGN_FIRSTVISIBLE = 5; // at the top of the window; the next two know no window, only folding
constexpr UINT TVGN_NEXTVISIBLE = 6;
constexpr UINT TVGN_PREVIOUSVISIBLE = 7;
constexpr UINT TVGN_CARET = 9; // the selected row

constexpr UINT TVHT_NOWHERE = 0x0001;
constexpr UINT TVHT_ONITEMICON = 0x0002;
constexpr UINT TVHT_ONITEMLABEL = 0x0004;
constexpr UINT TVHT_ONITEMINDENT = 0x0008;
constexpr UINT TVHT_ONITEMBUTTON = 0x0010;
constexpr UINT TVHT_ONITEMRIGHT = 0x0020; // in the row, right of its label
constexpr UINT TVHT_ONITEMSTATEICON = 0x0040;

struct TVITEMW {
    UINT mask;
    HTREEITEM hItem;
    UINT state;
    UINT stateMask;
    LPWSTR pszText;
    int cchTextMax; // room at pszText in characters, the terminator included; read alone
    int iImage;
    int iSelectedImage;
    int cChildren; // 1 if there are any
    LPARAM lParam;
};

struct TVINSERTSTRUCTW {
    HTREEITEM hParent; // TVI_ROOT or null for a row without a parent
    HTREEITEM hInsertAfter;
    TVITEMW item;
};

struct TVHITTESTINFO {
    POINT pt; // in client coordinates
    UINT flags;
    HTREEITEM hItem;
};

constexpr int TVN_ITEMEXPANDEDW = -455;

struct NMTREEVIEWW {
    NMHDR hdr;
    UINT action; // TVE_EXPAND or TVE_COLLAPSE
    TVITEMW itemOld;
    TVITEMW itemNew;
    POINT ptDrag;
};

// ---- Tooltips: a window that has them enabled is asked for the text

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
    LPWSTR lpszText; // at szText, unless the answer moves it
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
