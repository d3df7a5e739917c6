// The shell's folders.
#pragma once

#include <windows.h>

constexpr int CSIDL_COMMON_APPDATA = 35;
constexpr DWORD SHGFP_TYPE_DEFAULT = 1;

// Copies the path of a folder to a buffer of MAX_PATH characters. Only the folder for data common to all
// users is known; any other gives E_INVALIDARG.
HRESULT SHGetFolderPathW(HWND owner, int folder, HANDLE token, DWORD flags, LPWSTR path);
