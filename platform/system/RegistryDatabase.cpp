#include "RegistryDatabase.h"

#include "CaseFolding.h"
#include "Paths.h"
#include "Unicode.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace
{

// Milliseconds that other processes may hold the lock; and those once they have held it that long, so that a
// host which goes on to the next call doesn't wait all over again.
constexpr int longestWait = 2000;
constexpr int waitWhileHeld = 50;
constexpr std::chrono::seconds heldFor{5};
constexpr int progressStep = 100'000;  // virtual machine steps; no statement here needs as many
constexpr int largestValue = 16 << 20; // bytes; a file that holds or computes more is somebody else's
constexpr std::size_t mostLevels = 512;
constexpr std::size_t longestPath = 32767; // characters
constexpr std::string_view usersName = "HKEY_USERS";
constexpr const char* fileName = "/registry.db";
constexpr const char* damagedName = "/registry.db.damaged";

// The key at a path, of which ?1 is the folded form and ?2 the form that older versions stored; the second
// goes through all keys, for one that an older version stored under another spelling.
constexpr std::string_view findKey = "SELECT id FROM key WHERE folded IN (?1, ?2) ORDER BY folded = ?2 DESC";
constexpr std::string_view searchKey = "SELECT id FROM key WHERE fold(path) = ?1 AND ?2 <> ''";

constexpr const char* schema =
    "CREATE TABLE IF NOT EXISTS key("
    "id INTEGER PRIMARY KEY, folded TEXT NOT NULL UNIQUE, path TEXT NOT NULL);"
    "CREATE TABLE IF NOT EXISTS value("
    "key INTEGER NOT NULL REFERENCES key(id), folded TEXT NOT NULL, name TEXT NOT NULL,"
    "type INTEGER NOT NULL, data BLOB NOT NULL, PRIMARY KEY(key, folded)) WITHOUT ROWID";

LONG ErrorOf(int result)
{
    switch (result & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        return ERROR_SUCCESS;
    case SQLITE_PERM:
    case SQLITE_READONLY:
        return ERROR_ACCESS_DENIED;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return ERROR_BUSY;
    case SQLITE_NOMEM:
        return ERROR_OUTOFMEMORY;
    case SQLITE_FULL:
        return ERROR_DISK_FULL;
    case SQLITE_NOTADB:
        return ERROR_NOT_REGISTRY_FILE;
    case SQLITE_CORRUPT:
    case SQLITE_SCHEMA:
    case SQLITE_ERROR: // no column of that name: the file is somebody else's
        return ERROR_BADDB;
    default:
        return ERROR_REGISTRY_IO_FAILED;
    }
}

// A prepared statement; parameters are bound in order, counted from 1.
class Statement
{
public:
    Statement(sqlite3* database, std::string_view text)
    {
        m_result =
            sqlite3_prepare_v2(database, text.data(), static_cast<int>(text.size()), &m_statement, nullptr);
    }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement() { sqlite3_finalize(m_statement); }

    Statement& Bind(int parameter, sqlite3_int64 number)
    {
        return Keep(sqlite3_bind_int64(m_statement, parameter, number));
    }
    Statement& Bind(int parameter, std::string_view text)
    {
        return Keep(sqlite3_bind_text64(m_statement, parameter, text.data(), text.size(), SQLITE_STATIC,
                                        SQLITE_UTF8));
    }
    Statement& BindData(int parameter, const BYTE* data, DWORD size)
    {
        if (size == 0)
            return Keep(sqlite3_bind_zeroblob(m_statement, parameter, 0));
        return Keep(sqlite3_bind_blob64(m_statement, parameter, data, size, SQLITE_STATIC));
    }

    // SQLITE_ROW, SQLITE_DONE or what failed, here or while binding.
    int Step() { return m_result == SQLITE_OK ? sqlite3_step(m_statement) : m_result; }

    sqlite3_int64 Number(int column) const { return sqlite3_column_int64(m_statement, column); }
    const void* Data(int column) const { return sqlite3_column_blob(m_statement, column); }
    sqlite3_int64 DataSize(int column) const
    {
        return sqlite3_column_bytes(m_statement, column);
    } // after Data

private:
    Statement& Keep(int result)
    {
        if (m_result == SQLITE_OK)
            m_result = result;
        return *this;
    }

    sqlite3_stmt* m_statement = nullptr;
    int m_result = SQLITE_OK;
};

int Execute(sqlite3* database, const char* text)
{
    return sqlite3_exec(database, text, nullptr, nullptr, nullptr);
}

// As versions before this one folded.
std::string FoldedOnlyAToZ(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; });
    return text;
}

// The SQL function fold(text).
void Fold(sqlite3_context* context, int /*count*/, sqlite3_value** arguments)
{
    try {
        const auto* const bytes = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
        if (bytes == nullptr)
            throw std::bad_alloc(); // neither column can be null
        const std::string folded =
            FoldCase({bytes, static_cast<std::size_t>(sqlite3_value_bytes(arguments[0]))});
        sqlite3_result_text64(context, folded.data(), folded.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

// The paths of a key and of all keys above it, from the root down; none for a path that is too long or too
// deep.
std::vector<std::string> KeyPaths(std::u16string_view subKey)
{
    if (subKey.size() > longestPath)
        return {};
    std::vector<std::string> paths{std::string(usersName)};
    while (!subKey.empty()) {
        const std::size_t length = std::min(subKey.find(u'\\'), subKey.size());
        if (length > 0)
            paths.push_back(paths.back() + '\\' + ToUtf8(subKey.substr(0, length)));
        if (paths.size() > mostLevels)
            return {};
        subKey.remove_prefix(std::min(length + 1, subKey.size()));
    }
    return paths;
}

thread_local std::optional<std::chrono::steady_clock::time_point> lastBusy;

int Wait()
{
    return lastBusy && std::chrono::steady_clock::now() - *lastBusy < heldFor ? waitWhileHeld : longestWait;
}

enum class Opening { existing, creating };

// Nothing is opened where the file isn't there, which is told as ERROR_FILE_NOT_FOUND; what kept the system
// from looking is told as itself.
LONG OpenDatabase(Opening opening, Database& database)
{
    const std::string prefix = PrefixFolder();
    const bool creating = opening == Opening::creating;
    if (prefix.empty() || (creating && !MakeFolder(prefix)))
        return ERROR_REGISTRY_IO_FAILED;
    const std::string file = prefix + fileName;
    if (!creating && access(file.c_str(), F_OK) != 0)
        return errno == ENOENT || errno == ENOTDIR ? ERROR_FILE_NOT_FOUND : ERROR_REGISTRY_IO_FAILED;
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(file.c_str(), &opened,
                                       SQLITE_OPEN_READWRITE | (creating ? SQLITE_OPEN_CREATE : 0), nullptr);
    database.reset(opened);
    if (result != SQLITE_OK)
        return ErrorOf(result);
    if (sqlite3_db_readonly(opened, "main") != 0)
        return ERROR_ACCESS_DENIED;
    sqlite3_busy_timeout(opened, Wait());
    // The file may come from anybody: nothing that it computes is run.
    for (const int feature :
         {SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_ENABLE_VIEW, SQLITE_DBCONFIG_ENABLE_TRIGGER})
        sqlite3_db_config(opened, feature, 0, nullptr);
    sqlite3_limit(opened, SQLITE_LIMIT_LENGTH, largestValue);
    sqlite3_progress_handler(
        opened, progressStep, [](void*) { return 1; }, nullptr);
    return ErrorOf(sqlite3_create_function(opened, "fold", 1,
                                           SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY, nullptr,
                                           Fold, nullptr, nullptr));
}

// A file that is no database goes out of the way, so that what is stored from now on is kept. The first one
// that did stays.
void PutAside()
{
    const std::string file = PrefixFolder() + fileName;
    const std::string aside = PrefixFolder() + damagedName;
    if (renameat2(AT_FDCWD, file.c_str(), AT_FDCWD, aside.c_str(), RENAME_NOREPLACE) != 0 &&
        errno == EINVAL && link(file.c_str(), aside.c_str()) == 0) // a file system that can't do it at once
        unlink(file.c_str());
}

// Whether the file is one with keys, not an empty one; ERROR_SUCCESS, or what hinders from looking.
LONG HasKeys(sqlite3* database, bool& has)
{
    Statement find(database, "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = 'key'");
    const int result = find.Step();
    has = result == SQLITE_ROW;
    return result == SQLITE_ROW || result == SQLITE_DONE ? ERROR_SUCCESS : ErrorOf(result);
}

// SQLITE_ROW and the key's number, SQLITE_DONE where there is none, or what failed.
int FindKey(sqlite3* database, const std::string& path, sqlite3_int64& id)
{
    const std::string folded = FoldCase(path);
    const std::string older = FoldedOnlyAToZ(path);
    const bool foldsAlike = std::ranges::all_of(path, [](char c) { return (c & 0x80) == 0; });
    int result = SQLITE_DONE;
    for (const std::string_view text : {findKey, searchKey}) {
        Statement find(database, text);
        result = find.Bind(1, folded).Bind(2, older).Step();
        if (result == SQLITE_ROW)
            id = find.Number(0);
        if (result != SQLITE_DONE || foldsAlike)
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
        sqlite3_int64 id = 0;
        result = FindKey(database, path, id);
        if (result == SQLITE_DONE) {
            const std::string folded = FoldCase(path);
            Statement insert(database, "INSERT INTO key(folded, path) VALUES(?1, ?2)");
            result = insert.Bind(1, folded).Bind(2, path).Step();
        }
        result = result == SQLITE_DONE || result == SQLITE_ROW ? SQLITE_OK : result;
    }
    return result;
}

// Runs a change as one transaction, which is undone as a whole when it fails.
template <class Change> int Transact(sqlite3* database, Change change)
{
    int result = Execute(database, "BEGIN IMMEDIATE");
    if (result != SQLITE_OK)
        return result;
    result = change();
    if (result == SQLITE_OK)
        result = Execute(database, "COMMIT");
    if (result != SQLITE_OK)
        Execute(database, "ROLLBACK");
    return result;
}

} // namespace

void HoldUpNoLonger()
{
    lastBusy = std::chrono::steady_clock::now();
}

LONG OpenStoredKey(LPCWSTR subKey, Database& database, sqlite3_int64& id)
{
    const std::vector<std::string> paths = KeyPaths(subKey);
    if (paths.empty())
        return ERROR_INVALID_PARAMETER;
    if (const LONG failure = OpenDatabase(Opening::existing, database))
        return failure;
    bool hasKeys = false;
    if (const LONG failure = HasKeys(database.get(), hasKeys))
        return failure;
    const int result = hasKeys ? FindKey(database.get(), paths.back(), id) : SQLITE_DONE;
    return result == SQLITE_DONE ? ERROR_FILE_NOT_FOUND : ErrorOf(result);
}

LONG CreateStoredKey(LPCWSTR subKey)
{
    const std::vector<std::string> paths = KeyPaths(subKey);
    if (paths.empty())
        return ERROR_INVALID_PARAMETER;
    const auto create = [&paths] {
        Database database;
        const LONG failure = OpenDatabase(Opening::creating, database);
        return failure != ERROR_SUCCESS
                   ? failure
                   : ErrorOf(Transact(database.get(), [&] { return InsertKeys(database.get(), paths); }));
    };
    const LONG result = create();
    if (result != ERROR_NOT_REGISTRY_FILE)
        return result;
    PutAside();
    return create(); // in the new file, which may be that of another process
}

LONG ReadStoredValue(sqlite3* database, sqlite3_int64 key, LPCWSTR name, DWORD* type, BYTE* data, DWORD* size)
{
    const std::string utf8 = ToUtf8(name);
    const std::string folded = FoldCase(utf8);
    const std::string older = FoldedOnlyAToZ(utf8);
    Statement find(database, "SELECT type, length(data), CASE WHEN length(data) <= ?3 THEN data END"
                             " FROM value WHERE key = ?1 AND (folded = ?2 OR fold(name) = ?2)"
                             " ORDER BY folded = ?4 DESC, folded = ?2 DESC");
    const int result = find.Bind(1, key).Bind(2, folded).Bind(3, *size).Bind(4, older).Step();
    if (result != SQLITE_ROW)
        return result == SQLITE_DONE ? ERROR_FILE_NOT_FOUND : ErrorOf(result);
    const sqlite3_int64 length = find.Number(1);
    const bool fits = length <= static_cast<sqlite3_int64>(*size);
    const void* const bytes = find.Data(2);
    if (fits && find.DataSize(2) != length) // a text, whose length isn't its size
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
    const std::string utf8 = ToUtf8(name);
    const std::string folded = FoldCase(utf8);
    const std::string older = FoldedOnlyAToZ(utf8);
    return ErrorOf(Transact(database, [&] {
        Statement store(
            database,
            "INSERT INTO value(key, folded, name, type, data) VALUES(?1, coalesce("
            "(SELECT folded FROM value WHERE key = ?1 AND (folded = ?2 OR fold(name) = ?2)"
            " ORDER BY folded = ?6 DESC, folded = ?2 DESC), ?2), ?3, ?4, ?5) ON CONFLICT(key, folded)"
            " DO UPDATE SET type = excluded.type, data = excluded.data");
        const int result = store.Bind(1, key)
                               .Bind(2, folded)
                               .Bind(3, utf8)
                               .Bind(4, type)
                               .BindData(5, data, size)
                               .Bind(6, older)
                               .Step();
        return result == SQLITE_DONE ? SQLITE_OK : result;
    }));
}
