#include <windows.h>

#include "Descriptors.h"
#include "FailedLooks.h"
#include "RegistryDatabase.h"
#include "SignalGuard.h"

#include <cstdint>
#include <new>

// Every open key has a connection of its own.

struct HKEY__ {
    sqlite3* Store;
    sqlite3_int64 Id;
    REGSAM Access;
    std::uint64_t Mark;
    bool IsRead; // the last query gave an answer
    LONG Unread; // how it failed; ERROR_SUCCESS where it didn't, or there was none
};

namespace
{

// Runs the body of a registry function: no exception leaves it, and no signal reaches the host.
template <class Body> LONG Guarded(Body body)
{
    const SignalGuard guard;
    const StandardDescriptors descriptors;
    try {
        const LONG result = body();
        if (result == ERROR_BUSY)
            HoldUpNoLonger();
        return result;
    } catch (const std::bad_alloc&) {
        return ERROR_OUTOFMEMORY;
    }
}

// The key that the null handle stands for: the last one that could not be opened or created, and whether
// somebody has tried to read it since.
struct UnopenedKey {
    std::uint64_t Mark = 0;
    bool IsRead = false;
};
UnopenedKey unopened;

LONG OpenKey(LPCWSTR subKey, REGSAM access, HKEY* key)
{
    Database database;
    sqlite3_int64 id = 0;
    if (const LONG failure = OpenStoredKey(subKey, database, id))
        return failure;
    *key = new HKEY__{database.get(), id, access, KeyMark(subKey), false, ERROR_SUCCESS};
    static_cast<void>(database.release());
    return ERROR_SUCCESS;
}

} // namespace

LONG RegOpenKeyExW(HKEY root, LPCWSTR subKey, DWORD /*options*/, REGSAM access, HKEY* key)
{
    if (root != HKEY_USERS)
        return ERROR_INVALID_HANDLE;
    const LONG result = Guarded([&] { return OpenKey(subKey, access, key); });
    const std::uint64_t mark = KeyMark(subKey);
    unopened = {.Mark = result != ERROR_SUCCESS ? mark : 0};
    result != ERROR_SUCCESS ? FailedLooks::Keep(mark, result) : FailedLooks::Opened(mark);
    return result;
}

LONG RegCreateKeyExW(HKEY root, LPCWSTR subKey, DWORD /*reserved*/, LPWSTR /*keyClass*/, DWORD options,
                     REGSAM access, void* /*security*/, HKEY* key, DWORD* /*disposition*/)
{
    if (root != HKEY_USERS)
        return ERROR_INVALID_HANDLE;
    const std::uint64_t mark = KeyMark(subKey);
    if (const LONG failure = FailedLooks::OpeningOf(mark))
        return failure;
    const LONG created = Guarded([&] { return CreateStoredKey(subKey); });
    if (created == ERROR_SUCCESS)
        return RegOpenKeyExW(root, subKey, options, access, key);
    unopened = {.Mark = mark};
    FailedLooks::Keep(mark, created == ERROR_NOT_REGISTRY_FILE ? ERROR_BADDB : created);
    return created;
}

LONG RegQueryValueExW(HKEY key, LPCWSTR name, DWORD* /*reserved*/, DWORD* type, BYTE* data, DWORD* size)
{
    if (key == nullptr || key == HKEY_USERS) {
        unopened.IsRead = true;
        return ERROR_INVALID_HANDLE;
    }
    const LONG result = Guarded([&]() -> LONG {
        const bool isAllowed = (key->Access & KEY_READ) == KEY_READ;
        return isAllowed ? ReadStoredValue(key->Store, key->Id, name, type, data, size) : ERROR_ACCESS_DENIED;
    });
    key->IsRead = IsAnswer(result);
    key->Unread = key->IsRead ? ERROR_SUCCESS : result;
    FailedLooks::Keep(key->Mark, result);
    return result;
}

LONG RegSetValueExW(HKEY key, LPCWSTR name, DWORD /*reserved*/, DWORD type, const BYTE* data, DWORD size)
{
    const std::uint64_t value = ValueMark(name, type, {reinterpret_cast<const char*>(data), size});
    if (key == nullptr || key == HKEY_USERS) {
        if (unopened.IsRead)
            FailedLooks::Refuse(unopened.Mark, value);
        return ERROR_INVALID_HANDLE;
    }
    if (key->Unread != ERROR_SUCCESS) {
        FailedLooks::Refuse(key->Mark, value);
        return key->Unread;
    }
    // Who has read the key knows what is replaced.
    if (const LONG failure = key->IsRead ? ERROR_SUCCESS : FailedLooks::RefusalOf(value))
        return failure;
    return Guarded([&]() -> LONG {
        const bool isAllowed = (key->Access & KEY_WRITE) == KEY_WRITE;
        return isAllowed ? StoreValue(key->Store, key->Id, name, type, data, size) : ERROR_ACCESS_DENIED;
    });
}

LONG RegCloseKey(HKEY key)
{
    if (key == nullptr || key == HKEY_USERS)
        return ERROR_INVALID_HANDLE;
    const StandardDescriptors descriptors;
    sqlite3_close(key->Store);
    delete key;
    return ERROR_SUCCESS;
}
