// The part of the Windows interface that the library uses: types, drawing, run-time modules, the registry,
// message boxes. Names, values and contracts are those of Windows; the bodies of what stands in this file are
// in platform/system.
#pragma once

#include <windef.h>
#include <wingdi.h>
#include <winmsg.h>
#include <winuser.h>

#define FORCEINLINE inline __attribute__((always_inline))
#define _T(text) u##text // NOLINT(bugprone-reserved-identifier)

// Results of the system. Only those are named that a caller or the layer itself tells apart.
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

// Compares, folding the letters A to Z only; 0 when equal, else the order of the first difference.
PLATFORM_API int _wcsicmp(LPCWSTR first, LPCWSTR second); // NOLINT(bugprone-reserved-identifier)

// Copies as much as fits into maxLength characters, the terminator included; gives the target.
PLATFORM_API LPWSTR lstrcpynW(LPWSTR target, LPCWSTR source, int maxLength);

// Takes a path apart: drive with its colon, folder with the separator at its end, name, extension with its
// dot; what the path lacks becomes empty. Sizes are in characters, terminator included; a null buffer of size
// 0 isn't filled. Gives 0; 22 (EINVAL) for a null path, or a buffer that is null or has no size, but not
// both; 34 (ERANGE) for a part that doesn't fit. All buffers are empty after a failure.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
PLATFORM_API int _wsplitpath_s(LPCWSTR path, LPWSTR drive, std::size_t driveSize, LPWSTR folder,
                               std::size_t folderSize, LPWSTR name, std::size_t nameSize, LPWSTR extension,
                               std::size_t extensionSize);

constexpr UINT CP_THREAD_ACP = 3;

// Turns a text (of -1 characters: up to its terminator, and that too) into UTF-8, which every code page is
// here. Gives the bytes written; 0, and as many whole characters as fit, where the room isn't enough.
PLATFORM_API int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int length, char* target,
                                     int size, const char* defaultChar, BOOL* usedDefaultChar);

// The number that a text begins with, after blanks and a sign; 0 where there is none. A number that an int
// can't hold gives the nearest one that it can.
PLATFORM_API int _wtoi(LPCWSTR text); // NOLINT(bugprone-reserved-identifier)

// ---- Run-time modules

// Loads "name.dll", which is a module of the layer's own or else libname.so: by the loader's own search, then
// beside this library or beside the folder that it stands in. Null when there is none. A module stays loaded
// until it has been freed as often.
PLATFORM_API HMODULE LoadLibraryW(LPCWSTR fileName);
PLATFORM_API BOOL FreeLibrary(HMODULE module);

// Gives an entry of a module: from its table ModuleExports, else from the loader. Null when it has none of
// that name.
PLATFORM_API FARPROC GetProcAddress(HMODULE module, const char* name);

// An entry of a module's table of exports, for names that no linker takes. The table is
//   extern "C" const ModuleExport ModuleExports[];
// and its last entry is all null.
struct ModuleExport {
    const char* Name;
    void* Address;
};

// ---- Messages

constexpr UINT MB_OK = 0;
constexpr UINT MB_ICONEXCLAMATION = 48;
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;

// Shows a message and waits for the user, where a user interface has been put in place for that; else writes
// it to standard error and returns IDOK.
PLATFORM_API int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

// Gives the number of the message of this name, the same at every call, 0xC000 or above; 0 on failure.
PLATFORM_API UINT RegisterWindowMessageW(LPCWSTR name);

// ---- Files

// Copies a file, with its permissions as far as may be, under a name that must be free: failIfExists is TRUE.
// The copy is complete and on the disk once it has its name. FALSE where nothing was copied, and GetLastError
// tells why: ERROR_FILE_NOT_FOUND, ERROR_FILE_EXISTS, or ERROR_ACCESS_DENIED for anything else.
BOOL CopyFileW(LPCWSTR existing, LPCWSTR copy, BOOL failIfExists);

// Of the last call that says so, on this thread.
DWORD GetLastError();

// ---- Registry
//
// Keys and values are found without regard to the case of Latin, Greek, Cyrillic and Armenian letters and
// keep the spelling they were created with; empty parts of a path are passed over. A path of more than 512
// levels or 32767 characters gives ERROR_INVALID_PARAMETER, and a value holds at most 16 MiB. Every function
// returns ERROR_SUCCESS or tells what failed: ERROR_FILE_NOT_FOUND is an answer, namely that there is no such
// key or value; any other failure but ERROR_MORE_DATA means that nobody knows what is stored. Nothing is
// written on the strength of that: see RegCreateKeyExW and RegSetValueExW.

using REGSAM = DWORD;
inline const HKEY HKEY_USERS = reinterpret_cast<HKEY>(static_cast<UINT_PTR>(0x80000003)); // NOLINT
constexpr REGSAM KEY_READ = 0x20019;
constexpr REGSAM KEY_WRITE = 0x20006;
constexpr DWORD REG_SZ = 1;
constexpr DWORD REG_EXPAND_SZ = 2;
constexpr DWORD REG_BINARY = 3;

LONG RegOpenKeyExW(HKEY root, LPCWSTR subKey, DWORD options, REGSAM access, HKEY* key);

// Opens the key, after creating it and all keys above it where they are missing. No class, options or
// security attributes are kept. Fails for a key whose last opening failed without an answer. A registry file
// that is no database at all is put aside as registry.db.damaged, unless one was put aside before.
LONG RegCreateKeyExW(HKEY root, LPCWSTR subKey, DWORD reserved, LPWSTR keyClass, DWORD options, REGSAM access,
                     void* security, HKEY* key, DWORD* disposition);

// Reads a value into a buffer of *size bytes and stores its size there. A value that is longer than the
// buffer gives ERROR_MORE_DATA and leaves the buffer alone.
LONG RegQueryValueExW(HKEY key, LPCWSTR name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* size);

// Stores a value of size bytes; it is on disk when the call returns. Fails through a handle whose last query
// gave no answer; and the same value through any handle that wasn't read, until that key has been read.
LONG RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size);

LONG RegCloseKey(HKEY key);
