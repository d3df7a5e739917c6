// The registry.
//
// Names of keys and values ignore the case of Latin, Greek, Cyrillic and Armenian letters, and keep the
// spelling they were created with; empty path parts are ignored. A path of more than 512 levels or 32767
// characters gives ERROR_INVALID_PARAMETER; a value holds at most 16 MiB. All functions return ERROR_SUCCESS
// or an error code. ERROR_FILE_NOT_FOUND (no such key or value) and ERROR_MORE_DATA are answers; after any
// other error it is unknown what is stored, and RegCreateKeyExW and RegSetValueExW refuse to overwrite it.
#pragma once

#include <windef.h>

using REGSAM = DWORD;
inline const HKEY HKEY_USERS = reinterpret_cast<HKEY>(static_cast<UINT_PTR>(0x80000003)); // NOLINT
constexpr REGSAM KEY_READ = 0x20019;
constexpr REGSAM KEY_WRITE = 0x20006;
constexpr DWORD REG_SZ = 1;
constexpr DWORD REG_EXPAND_SZ = 2;

LONG RegOpenKeyExW(HKEY root, LPCWSTR subKey, DWORD options, REGSAM access, HKEY* key);

// Creates the key and its parents as far as they are missing, and opens it. Class, options and security
// attributes are ignored. Fails if the last attempt to open the key failed without an answer. A registry file
// that is no database is renamed to registry.db.damaged, unless there is one already.
LONG RegCreateKeyExW(HKEY root, LPCWSTR subKey, DWORD reserved, LPWSTR keyClass, DWORD options, REGSAM access,
                     void* security, HKEY* key, DWORD* disposition);

// Reads a value into a buffer of *size bytes, and its size into *size. A value that doesn't fit gives
// ERROR_MORE_DATA and leaves the buffer unchanged.
LONG RegQueryValueExW(HKEY key, LPCWSTR name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* size);

// Stores a value of size bytes, and syncs it to disk. Fails if the last query through the handle had no
// answer; the same value is then refused through all handles that weren't read either, until the key has been
// read.
LONG RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size);

LONG RegCloseKey(HKEY key);
