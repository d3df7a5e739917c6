// The parameters of the system's colour and file dialogs. Names and values are those of Windows.
#pragma once

#include <winmsg.h>

// ---- Colours

constexpr DWORD CC_RGBINIT = 0x0001;
constexpr DWORD CC_FULLOPEN = 0x0002;
constexpr DWORD CC_ANYCOLOR = 0x0100;

struct CHOOSECOLORW {
    DWORD lStructSize;
    HWND hwndOwner;
    HWND hInstance;
    COLORREF rgbResult;
    COLORREF* lpCustColors; // 16, updated in place; may be null
    DWORD Flags;
    LPARAM lCustData;
    void* lpfnHook;
    LPCWSTR lpTemplateName;
};

// ---- Files

constexpr DWORD OFN_OVERWRITEPROMPT = 0x0002; // always in effect for saving
constexpr DWORD OFN_HIDEREADONLY = 0x0004;    // without effect

// Texts may be null, and have to outlive the dialog.
struct OPENFILENAMEW {
    DWORD lStructSize;
    HWND hwndOwner;
    LPCWSTR lpstrInitialDir; // where the dialog opens, unless the file name includes a folder
    LPCWSTR lpstrTitle;
    DWORD Flags;
    LPCWSTR lpstrDefExt; // for a name without an extension; may begin with a dot
};
