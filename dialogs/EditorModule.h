// The entry point of the editor, which is a module of its own and loaded on demand.
#pragma once

#include <windows.h>

inline constexpr const TCHAR* k_EditorModule = _T("styleatlas-editor.dll");
inline constexpr const char* k_EditorEntry = "RunStyleAtlasEditor";

// Opens the editor above a window of the host, or above none for null. After OK the module's table is the
// edited one. Returns the result of the dialog: IDOK, IDCANCEL, or -1 if it can't be shown.
using k_PfnRunEditor = INT_PTR(WINAPI*)(HWND parent);
extern "C" AFX_EXT_API INT_PTR WINAPI RunStyleAtlasEditor(HWND parent);
