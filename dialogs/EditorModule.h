// The way from the frame to the editor, which is a module of its own: it is loaded when it is wanted.
#pragma once

#include <windows.h>

inline constexpr const TCHAR* k_EditorModule = _T("styleatlas-editor.dll");
inline constexpr const char* k_EditorEntry = "RunStyleAtlasEditor";

// Opens the editor above a window of the host's, or above none for null, and runs it; after OK the module's
// table is the edited one. Gives what the dialog gave: IDOK, IDCANCEL, or -1 where it can't be shown.
using k_PfnRunEditor = INT_PTR(WINAPI*)(HWND parent);
extern "C" AFX_EXT_API INT_PTR WINAPI RunStyleAtlasEditor(HWND parent);
