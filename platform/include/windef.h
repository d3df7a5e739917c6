// The basic types of the Windows interface.
#pragma once

#include <cstddef>
#include <cstdint>

#define WINAPI
#define CALLBACK

// What the core library exports to the other libraries of this system. The tag becomes part of the symbols,
// so that they don't clash with classes and functions of the same names in a host.
#define PLATFORM_API [[gnu::visibility("default"), gnu::abi_tag("styleatlas")]]

// The framework's marks for exported classes, functions and objects.
#define AFX_EXT_CLASS [[gnu::visibility("default")]]
#define AFX_EXT_API [[gnu::visibility("default")]]
#define AFX_EXT_DATA PLATFORM_API

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using LONG = std::int32_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using ULONGLONG = std::uint64_t;
using COLORREF = DWORD; // red in the lowest byte, then green, then blue
using HRESULT = LONG;

using WCHAR = char16_t;
using TCHAR = WCHAR;
using LPCTSTR = const TCHAR*;
using LPCWSTR = const WCHAR*;
using LPWSTR = WCHAR*;

constexpr BOOL FALSE = 0;
constexpr BOOL TRUE = 1;
constexpr int MAX_PATH = 260;

using HANDLE = void*;
using HWND = struct HWND__*;
using HMODULE = struct HINSTANCE__*;
using HKEY = struct HKEY__*;
using FARPROC = void (*)();

// Device contexts and the objects selected into them.
using HGDIOBJ = void*;
using HDC = struct HDC__*;
using HPEN = struct HPEN__*;
using HBRUSH = struct HBRUSH__*;
using HFONT = struct HFONT__*;
using HBITMAP = struct HBITMAP__*;
using HPALETTE = struct HPALETTE__*;

struct POINT {
    LONG x;
    LONG y;
};

struct SIZE {
    LONG cx;
    LONG cy;
};

// Half-open: without its right and bottom edges.
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

using LPPOINT = POINT*;
using LPSIZE = SIZE*;
using LPRECT = RECT*;
using LPCRECT = const RECT*;
