// The part of the Windows interface that the library uses. Names, values and contracts are those of Windows;
// the functions declared here are implemented in platform/system.
#pragma once

#include <winctrl.h>
#include <windef.h>
#include <wingdi.h>
#include <winmetrics.h>
#include <winmsg.h>
#include <winreg.h>
#include <winuser.h>
#include <winwnd.h>

#define FORCEINLINE inline __attribute__((always_inline))
#define _T(text) u##text // NOLINT(bugprone-reserved-identifier)

// Error codes, as far as callers or the layer distinguish them.
constexpr LONG ERROR_SUCCESS = 0;
constexpr LONG ERROR_FILE_NOT_FOUND = 2;
constexpr LONG ERROR_ACCESS_DENIED = 5;
constexpr LONG ERROR_INVALID_HANDLE = 6;
constexpr LONG ERROR_OUTOFMEMORY = 14;
constexpr LONG ERROR_FILE_EXISTS = 80;
constexpr LONG ERROR_INVALID_PARAMETER = 87;
constexpr LONG ERROR_DISK_FULL = 112;
constexpr LONG ERROR_BUSY = 170;
constexpr LONG ERROR_MORE_DATA = 234;
constexpr LONG ERROR_BADDB = 1009;
constexpr LONG ERROR_REGISTRY_IO_FAILED = 1016;
constexpr LONG ERROR_NOT_REGISTRY_FILE = 1017;
constexpr HRESULT S_OK = 0;
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057);

// ---- Strings

// Compares texts, folding A to Z only; 0 when equal.
PLATFORM_API int _wcsicmp(LPCWSTR first, LPCWSTR second); // NOLINT(bugprone-reserved-identifier)

// Copies as much as fits into maxLength characters, terminator included; returns the target.
PLATFORM_API LPWSTR lstrcpynW(LPWSTR target, LPCWSTR source, int maxLength);

// Splits a path into drive with colon, folder with final separator, name, and extension with dot; missing
// parts are empty. Sizes are in characters, terminator included; a buffer may be null with size 0. Returns 0;
// 22 (EINVAL) for a null path or an invalid buffer; 34 (ERANGE) for a part that doesn't fit. On an error all
// buffers are empty.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
PLATFORM_API int _wsplitpath_s(LPCWSTR path, LPWSTR drive, std::size_t driveSize, LPWSTR folder,
                               std::size_t folderSize, LPWSTR name, std::size_t nameSize, LPWSTR extension,
                               std::size_t extensionSize);

constexpr UINT CP_THREAD_ACP = 3;

// Converts a text to UTF-8, whatever the code page; a length of -1 means up to and including its terminator.
// Returns the number of bytes; 0 if they don't fit, with as many whole characters copied as do.
PLATFORM_API int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int length, char* target,
                                     int size, const char* defaultChar, BOOL* usedDefaultChar);

// The number at the beginning of a text, after blanks and a sign; 0 if there is none. Numbers out of range
// are clamped.
PLATFORM_API int _wtoi(LPCWSTR text); // NOLINT(bugprone-reserved-identifier)

// ---- Run-time modules

// Loads "name.dll": a module of the layer itself, or libname.so, which is searched by the loader, then in
// this library's folder and its parent. Null if there is none. Each load needs a FreeLibrary of its own.
PLATFORM_API HMODULE LoadLibraryW(LPCWSTR fileName);
PLATFORM_API BOOL FreeLibrary(HMODULE module);

// Finds an export of a module in its table ModuleExports, else by the loader. Null if there is none.
PLATFORM_API FARPROC GetProcAddress(HMODULE module, const char* name);

// An entry of a module's table of exports, for names that no linker accepts:
//   extern "C" const ModuleExport ModuleExports[]; // the last entry is all null
struct ModuleExport {
    const char* Name;
    void* Address;
};

// ---- Messages

constexpr UINT MB_OK = 0;
constexpr UINT MB_ICONEXCLAMATION = 48;
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;

// Shows a message and waits for the user's answer. Without a user interface or display, writes the message to
// standard error and returns IDOK.
PLATFORM_API int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

// The number of the message of this name, unique and 0xC000 or above; 0 on an error.
PLATFORM_API UINT RegisterWindowMessageW(LPCWSTR name);

// ---- Files

// Copies a file, with its permissions as far as possible, to a path that must not exist: failIfExists is
// always TRUE. The copy appears complete and synced to disk. FALSE on an error, which GetLastError returns:
// ERROR_FILE_NOT_FOUND, ERROR_FILE_EXISTS, or ERROR_ACCESS_DENIED for anything else.
BOOL CopyFileW(LPCWSTR existing, LPCWSTR copy, BOOL failIfExists);

// The error of the last CopyFileW on this thread.
DWORD GetLastError();
