// Trees. Part of commctrl.h.
#pragma once

#include <winctrl.h>

using HTREEITEM = struct TREEITEM__*;

// Positions; no row has such a handle.
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
// Number the rows for accessibility; 0 is no row's number. Null or 0 for a row that doesn't exist.
constexpr UINT TVM_MAPACCIDTOHTREEITEM = 0x112A;
constexpr UINT TVM_MAPHTREEITEMTOACCID = 0x112B;
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
constexpr UINT TVGN_FIRSTVISIBLE = 5; // at the top of the window
constexpr UINT TVGN_NEXTVISIBLE = 6;  // also outside of the window, but not below a collapsed row
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
