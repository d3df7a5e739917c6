// The registry on disk: the SQLite file registry.db in the prefix folder. A write is one transaction that
// takes the lock at its start, so that processes which write at once wait for each other. Keys and values are
// found by their folded names; those of older versions, which folded A to Z alone, by the spelling that is
// stored beside them. Each function gives ERROR_SUCCESS or what failed, as the registry's own do, and throws
// std::bad_alloc.
#pragma once

#include <memory>
#include <sqlite3.h>
#include <windows.h>

struct CloseDatabase {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

// Finds a key below HKEY_USERS. The connection is its own, and holds no lock between calls.
LONG OpenStoredKey(LPCWSTR subKey, Database& database, sqlite3_int64& id);

// Makes the key and those above it where they are missing, and the file. One that is no database is put
// aside.
LONG CreateStoredKey(LPCWSTR subKey);

LONG ReadStoredValue(sqlite3* database, sqlite3_int64 key, LPCWSTR name, DWORD* type, BYTE* data,
                     DWORD* size);
LONG StoreValue(sqlite3* database, sqlite3_int64 key, LPCWSTR name, DWORD type, const BYTE* data, DWORD size);

// The lock was waited for in vain: a host that goes on to the next call, on this thread, hardly waits in it.
void HoldUpNoLonger();
