// Headers: headings of columns. Part of commctrl.h.
#pragma once

#include <winctrl.h>

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

// lParam of HDM_LAYOUT: the rectangle for the header and what is below it, which isn't changed, and the
// resulting header position.
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
