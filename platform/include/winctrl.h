// The basic controls and owner draw: statics, buttons, combo boxes. Names and values are those of Windows.
#pragma once

#include <winmsg.h>

// ---- Notifications and owner draw

constexpr UINT ODT_COMBOBOX = 3;
constexpr UINT ODT_BUTTON = 4;
constexpr UINT ODA_DRAWENTIRE = 1;
constexpr UINT ODA_SELECT = 2;
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

using LPDRAWITEMSTRUCT = DRAWITEMSTRUCT*;
using LPMEASUREITEMSTRUCT = MEASUREITEMSTRUCT*;
using LPCOMPAREITEMSTRUCT = COMPAREITEMSTRUCT*;

// ---- Statics

constexpr DWORD SS_LEFTNOWORDWRAP = 0x000C;
constexpr DWORD SS_TYPEMASK = 0x001F;
constexpr DWORD SS_PATHELLIPSIS = 0x8000;
constexpr DWORD SS_ELLIPSISMASK = 0xC000;

// ---- Buttons

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

// ---- Combo boxes

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
constexpr UINT CB_SETCUEBANNER = 0x1703; // lParam: a text that the empty field shows in grey
constexpr LRESULT CB_ERR = -1;
