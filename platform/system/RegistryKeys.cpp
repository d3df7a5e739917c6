#include "RegistryKeys.h"

#include "RegistryFile.h"
#include "RegistryName.h"
#include "Unicode.h"

#include <algorithm>
#include <string>
#include <vector>

namespace
{

constexpr std::size_t maxLevels = 512;
constexpr std::size_t maxPathLength = 32767; // characters
constexpr std::string_view usersName = "HKEY_USERS";

// ?1 is the folded path, ?2 the path as older versions folded it. The second statement scans all keys, for
// one that an older version stored in another spelling.
constexpr std::string_view findKey = "SELECT id FROM key WHERE folded IN (?1, ?2) ORDER BY folded = ?2 DESC";
constexpr std::string_view searchKey = "SELECT id FROM key WHERE fold(path) = ?1 AND ?2 <> ''";

constexpr const char* schema =
    "CREATE TABLE IF NOT EXISTS key("
    "id INTEGER PRIMARY KEY, folded TEXT NOT NULL UNIQUE, path TEXT NOT NULL);"
    "CREATE TABLE IF NOT EXISTS value("
    "key INTEGER NOT NULL REFERENCES key(id), folded TEXT NOT NULL, name TEXT NOT NULL,"
    "type INTEGER NOT NULL, data BLOB NOT NULL, PRIMARY KEY(key, folded)) WITHOUT ROWID";

// The paths of a key and of all keys above it, from the root down; none if the path is too long or too deep.
std::vector<std::string> KeyPaths(std::u16string_view subKey)
{
    if (subKey.size() > maxPathLength)
        return {};
    std::vector<std::string> paths{std::string(usersName)};
    while (!subKey.empty()) {
        const std::size_t length = std::min(subKey.find(u'\\'), subKey.size());
        if (length > 0)
            paths.push_back(paths.back() + '\\' + ToUtf8(subKey.substr(0, length)));
        if (paths.size() > maxLevels)
            return {};
        subKey.remove_prefix(std::min(length + 1, subKey.size()));
    }
    return paths;
}

// Whether the file has the table of keys; an empty file hasn't.
LONG HasKeys(sqlite3* database, bool& has)
{
    Statement find(database, "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = 'key'");
    const int result = find.Step();
    has = result == SQLITE_ROW;
    return ErrorOf(result);
}

// SQLITE_ROW and the key's id, SQLITE_DONE if there is no such key, or an error.
int FindKey(sqlite3* database, const RegistryName& path, sqlite3_int64& id)
{
    const bool isAscii = std::ranges::all_of(path.Spelling, [](char c) { return (c & 0x80) == 0; });
    int result = SQLITE_DONE;
    for (const std::string_view text : {findKey, searchKey}) {
        Statement find(database, text);
        result = find.Bind(1, path.Folded).Bind(2, path.FoldedByOlder).Step();
        if (result == SQLITE_ROW)
            id = find.Number(0);
        if (result != SQLITE_DONE || isAscii)
            break;
    }
    return result;
}

int InsertKeys(sqlite3* database, const std::vector<std::string>& paths)
{
    int result = Execute(database, schema);
    for (const std::string& path : paths) {
        if (result != SQLITE_OK)
            return result;
        const RegistryName name(path);
        sqlite3_int64 id = 0;
        result = FindKey(database, name, id);
        if (result == SQLITE_DONE) {
            Statement insert(database, "INSERT INTO key(folded, path) VALUES(?1, ?2)");
            result = insert.Bind(1, name.Folded).Bind(2, name.Spelling).Step();
        }
        result = result == SQLITE_DONE || result == SQLITE_ROW ? SQLITE_OK : result;
    }
    return result;
}

} // namespace

LONG OpenStoredKey(LPCWSTR subKey, Database& database, sqlite3_int64& id)
{
    const std::vector<std::string> paths = KeyPaths(subKey);
    if (paths.empty())
        return ERROR_INVALID_PARAMETER;
    if (const LONG error = OpenRegistryFile(Opening::existing, database))
        return error;
    bool hasKeys = false;
    if (const LONG error = HasKeys(database.get(), hasKeys))
        return error;
    const int result = hasKeys ? FindKey(database.get(), RegistryName(paths.back()), id) : SQLITE_DONE;
    return result == SQLITE_DONE ? ERROR_FILE_NOT_FOUND : ErrorOf(result);
}

LONG CreateStoredKey(LPCWSTR subKey)
{
    const std::vector<std::string> paths = KeyPaths(subKey);
    if (paths.empty())
        return ERROR_INVALID_PARAMETER;
    const auto create = [&paths] {
        Database database;
        const LONG error = OpenRegistryFile(Opening::creating, database);
        return error != ERROR_SUCCESS
                   ? error
                   : ErrorOf(Transact(database.get(), [&] { return InsertKeys(database.get(), paths); }));
    };
    const LONG result = create();
    if (result != ERROR_NOT_REGISTRY_FILE)
        return result;
    PutRegistryFileAside();
    return create(); // another process may have created the new file by now
}
