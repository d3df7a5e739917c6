// The shell's folders.
#pragma once

#include <windows.h>

constexpr int CSIDL_COMMON_APPDATA = 35;
constexpr DWORD SHGFP_TYPE_DEFAULT = 1;

// Writes the path of a folder, with its terminator, into a buffer of MAX_PATH characters. Knows the folder
// for data common to all users, whoever asks; any other gives E_INVALIDARG.
HRESULT SHGetFolderPathW(HWND owner, int folder, HANDLE token, DWORD flags, LPWSTR path);
