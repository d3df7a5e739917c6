#include "RegistryFile.h"

#include "CaseFolding.h"
#include "Paths.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <new>
#include <optional>
#include <string>
#include <unistd.h>

namespace
{

constexpr int maxWait = 2000;     // milliseconds for a lock that another process holds
constexpr int shortenedWait = 50; // milliseconds
constexpr std::chrono::seconds shortenedFor{5};
constexpr int maxSteps = 100'000;      // of SQLite's virtual machine; no statement here needs as many
constexpr int maxValueSize = 16 << 20; // bytes; a file that holds or computes more is another program's
constexpr const char* fileName = "/registry.db";
constexpr const char* damagedName = "/registry.db.damaged";

thread_local std::optional<std::chrono::steady_clock::time_point> lastBusy;

int Wait()
{
    return lastBusy && std::chrono::steady_clock::now() - *lastBusy < shortenedFor ? shortenedWait : maxWait;
}

// The SQL function fold(text).
void Fold(sqlite3_context* context, int /*count*/, sqlite3_value** arguments)
{
    try {
        const auto* const bytes = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
        if (bytes == nullptr)
            throw std::bad_alloc(); // no column that is folded can be null
        const std::string folded =
            FoldCase({bytes, static_cast<std::size_t>(sqlite3_value_bytes(arguments[0]))});
        sqlite3_result_text64(context, folded.data(), folded.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

// The file is untrusted: no code in it is run, and neither a value nor a statement grows without bound.
void Restrict(sqlite3* database)
{
    for (const int feature :
         {SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_ENABLE_VIEW, SQLITE_DBCONFIG_ENABLE_TRIGGER})
        sqlite3_db_config(database, feature, 0, nullptr);
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, maxValueSize);
    sqlite3_progress_handler(
        database, maxSteps, [](void*) { return 1; }, nullptr);
}

} // namespace

LONG OpenRegistryFile(Opening opening, Database& database)
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
    Restrict(opened);
    return ErrorOf(sqlite3_create_function(opened, "fold", 1,
                                           SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY, nullptr,
                                           Fold, nullptr, nullptr));
}

void PutRegistryFileAside()
{
    const std::string file = PrefixFolder() + fileName;
    const std::string aside = PrefixFolder() + damagedName;
    if (renameat2(AT_FDCWD, file.c_str(), AT_FDCWD, aside.c_str(), RENAME_NOREPLACE) != 0 &&
        errno == EINVAL && link(file.c_str(), aside.c_str()) == 0) // the file system lacks RENAME_NOREPLACE
        unlink(file.c_str());
}

void ShortenRegistryWait()
{
    lastBusy = std::chrono::steady_clock::now();
}
