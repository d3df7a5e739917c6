// What resource scripts name. For the resource compiler, which takes macros and plain numbers alone; sources
// find the same names in windows.h.
#pragma once

#ifdef RC_INVOKED

#define LANG_ENGLISH 0x09
#define SUBLANG_ENGLISH_US 0x01

// The resource type of a dialog's init block.
#define DLGINIT 240

#define IDOK 1
#define IDCANCEL 2
#define IDC_STATIC -1

// Windows
#define WS_POPUP 0x80000000
#define WS_VISIBLE 0x10000000
#define WS_CAPTION 0x00C00000
#define WS_VSCROLL 0x00200000
#define WS_SYSMENU 0x00080000
#define WS_GROUP 0x00020000
#define WS_TABSTOP 0x00010000
#define WS_EX_APPWINDOW 0x00040000

// Dialogs
#define DS_FIXEDSYS 0x0008
#define DS_SETFONT 0x0040
#define DS_MODALFRAME 0x0080

// Buttons
#define BS_AUTOCHECKBOX 0x0003

// Combo boxes
#define CBS_DROPDOWN 0x0002
#define CBS_DROPDOWNLIST 0x0003
#define CBS_OWNERDRAWVARIABLE 0x0020

// Statics
#define SS_LEFTNOWORDWRAP 0x000C
#define SS_PATHELLIPSIS 0x8000

#endif
