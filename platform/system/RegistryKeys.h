// The keys of the registry below HKEY_USERS. A path of more than 512 levels or 32767 characters gives
// ERROR_INVALID_PARAMETER. Functions return ERROR_SUCCESS or an error code, and throw std::bad_alloc.
#pragma once

#include "SqlDatabase.h"

// Opens a connection for the key and returns its id.
LONG OpenStoredKey(LPCWSTR subKey, Database& database, sqlite3_int64& id);

// Creates the file, the keys above this one and the key itself, as far as they are missing. A file that is no
// database is put aside first.
LONG CreateStoredKey(LPCWSTR subKey);
