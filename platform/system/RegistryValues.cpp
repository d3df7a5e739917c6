#include "RegistryValues.h"

#include "RegistryName.h"
#include "Unicode.h"

#include <cstring>

LONG ReadStoredValue(sqlite3* database, sqlite3_int64 key, LPCWSTR name, DWORD* type, BYTE* data, DWORD* size)
{
    const RegistryName wanted(ToUtf8(name));
    Statement find(database, "SELECT type, length(data), CASE WHEN length(data) <= ?3 THEN data END"
                             " FROM value WHERE key = ?1 AND (folded = ?2 OR fold(name) = ?2)"
                             " ORDER BY folded = ?4 DESC, folded = ?2 DESC");
    const int result =
        find.Bind(1, key).Bind(2, wanted.Folded).Bind(3, *size).Bind(4, wanted.FoldedByOlder).Step();
    if (result != SQLITE_ROW)
        return result == SQLITE_DONE ? ERROR_FILE_NOT_FOUND : ErrorOf(result);
    const sqlite3_int64 length = find.Number(1);
    const bool fits = length <= static_cast<sqlite3_int64>(*size);
    const void* const bytes = find.Data(2);
    if (fits && find.DataSize(2) != length) // a text: its length is in characters
        return ERROR_BADDB;
    *type = static_cast<DWORD>(find.Number(0));
    *size = static_cast<DWORD>(length);
    if (!fits)
        return ERROR_MORE_DATA;
    if (length > 0)
        std::memcpy(data, bytes, static_cast<std::size_t>(length));
    return ERROR_SUCCESS;
}

LONG StoreValue(sqlite3* database, sqlite3_int64 key, LPCWSTR name, DWORD type, const BYTE* data, DWORD size)
{
    const RegistryName stored(ToUtf8(name));
    return ErrorOf(Transact(database, [&] {
        Statement store(
            database,
            "INSERT INTO value(key, folded, name, type, data) VALUES(?1, coalesce("
            "(SELECT folded FROM value WHERE key = ?1 AND (folded = ?2 OR fold(name) = ?2)"
            " ORDER BY folded = ?6 DESC, folded = ?2 DESC), ?2), ?3, ?4, ?5) ON CONFLICT(key, folded)"
            " DO UPDATE SET type = excluded.type, data = excluded.data");
        const int result = store.Bind(1, key)
                               .Bind(2, stored.Folded)
                               .Bind(3, stored.Spelling)
                               .Bind(4, type)
                               .BindData(5, data, size)
                               .Bind(6, stored.FoldedByOlder)
                               .Step();
        return result == SQLITE_DONE ? SQLITE_OK : result;
    }));
}
