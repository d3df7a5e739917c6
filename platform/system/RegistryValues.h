// The values of a registry key. Functions return ERROR_SUCCESS or an error code, and throw std::bad_alloc.
#pragma once

#include "SqlDatabase.h"

// As RegQueryValueExW and RegSetValueExW, on an open connection and the id of a key.
LONG ReadStoredValue(sqlite3* database, sqlite3_int64 key, LPCWSTR name, DWORD* type, BYTE* data,
                     DWORD* size);
LONG StoreValue(sqlite3* database, sqlite3_int64 key, LPCWSTR name, DWORD type, const BYTE* data, DWORD size);
