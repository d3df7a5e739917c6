#include <windows.h>

#include "Descriptors.h"
#include "RegistryFailures.h"
#include "RegistryFile.h"
#include "RegistryKeys.h"
#include "RegistryValues.h"
#include "SignalGuard.h"

#include <cstdint>
#include <new>
#include <utility>

// An open key, with a connection of its own.
struct HKEY__ {
    Database Store;
    sqlite3_int64 Id;
    REGSAM Access;
    std::uint64_t Hash;
    bool IsRead;    // the last query had an answer
    LONG ReadError; // of the last query; ERROR_SUCCESS if it had an answer, or there was none
};

namespace
{

// Runs the body of a registry function. Contains its exceptions and the signals of its writes.
template <class Body> LONG Guarded(Body body)
{
    const SignalGuard guard;
    const StandardDescriptors descriptors;
    try {
        const LONG result = body();
        if (result == ERROR_BUSY)
            ShortenRegistryWait();
        return result;
    } catch (const std::bad_alloc&) {
        return ERROR_OUTOFMEMORY;
    }
}

// What calls with the null handle mean: the last key that could not be opened or created.
struct UnopenedKey {
    std::uint64_t Hash = 0;
    bool IsQueried = false; // the host tried to read a value of it
};
UnopenedKey unopened;

LONG OpenKey(LPCWSTR subKey, REGSAM access, HKEY* key)
{
    Database database;
    sqlite3_int64 id = 0;
    if (const LONG error = OpenStoredKey(subKey, database, id))
        return error;
    *key = new HKEY__{std::move(database), id, access, KeyHash(subKey), false, ERROR_SUCCESS};
    return ERROR_SUCCESS;
}

} // namespace

LONG RegOpenKeyExW(HKEY root, LPCWSTR subKey, DWORD /*options*/, REGSAM access, HKEY* key)
{
    if (root != HKEY_USERS)
        return ERROR_INVALID_HANDLE;
    const LONG result = Guarded([&] { return OpenKey(subKey, access, key); });
    const std::uint64_t hash = KeyHash(subKey);
    unopened = {.Hash = result != ERROR_SUCCESS ? hash : 0};
    if (result != ERROR_SUCCESS) // a key that was opened has values still unknown
        RegistryFailures::Record(hash, result);
    return result;
}

LONG RegCreateKeyExW(HKEY root, LPCWSTR subKey, DWORD /*reserved*/, LPWSTR /*keyClass*/, DWORD options,
                     REGSAM access, void* /*security*/, HKEY* key, DWORD* /*disposition*/)
{
    if (root != HKEY_USERS)
        return ERROR_INVALID_HANDLE;
    const std::uint64_t hash = KeyHash(subKey);
    if (const LONG error = RegistryFailures::ErrorOf(hash))
        return error;
    const LONG created = Guarded([&] { return CreateStoredKey(subKey); });
    if (created == ERROR_SUCCESS)
        return RegOpenKeyExW(root, subKey, options, access, key);
    unopened = {.Hash = hash};
    RegistryFailures::Record(hash, created == ERROR_NOT_REGISTRY_FILE ? ERROR_BADDB : created);
    return created;
}

LONG RegQueryValueExW(HKEY key, LPCWSTR name, DWORD* /*reserved*/, DWORD* type, BYTE* data, DWORD* size)
{
    if (key == nullptr || key == HKEY_USERS) {
        unopened.IsQueried = true;
        return ERROR_INVALID_HANDLE;
    }
    const LONG result = Guarded([&]() -> LONG {
        const bool isAllowed = (key->Access & KEY_READ) == KEY_READ;
        return isAllowed ? ReadStoredValue(key->Store.get(), key->Id, name, type, data, size)
                         : ERROR_ACCESS_DENIED;
    });
    key->IsRead = IsAnswer(result);
    key->ReadError = key->IsRead ? ERROR_SUCCESS : result;
    RegistryFailures::Record(key->Hash, result);
    return result;
}

LONG RegSetValueExW(HKEY key, LPCWSTR name, DWORD /*reserved*/, DWORD type, const BYTE* data, DWORD size)
{
    const std::uint64_t value = ValueHash({reinterpret_cast<const char*>(data), size});
    if (key == nullptr || key == HKEY_USERS) {
        if (unopened.IsQueried)
            RegistryFailures::RefuseValue(unopened.Hash, value);
        return ERROR_INVALID_HANDLE;
    }
    if (key->ReadError != ERROR_SUCCESS) {
        RegistryFailures::RefuseValue(key->Hash, value);
        return key->ReadError;
    }
    // A host that has read the key knows what it replaces.
    if (const LONG error = key->IsRead ? ERROR_SUCCESS : RegistryFailures::RefusalOf(value))
        return error;
    return Guarded([&]() -> LONG {
        const bool isAllowed = (key->Access & KEY_WRITE) == KEY_WRITE;
        return isAllowed ? StoreValue(key->Store.get(), key->Id, name, type, data, size)
                         : ERROR_ACCESS_DENIED;
    });
}

LONG RegCloseKey(HKEY key)
{
    if (key == nullptr || key == HKEY_USERS)
        return ERROR_INVALID_HANDLE;
    const StandardDescriptors descriptors;
    delete key;
    return ERROR_SUCCESS;
}
