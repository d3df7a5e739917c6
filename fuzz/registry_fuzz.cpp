// The registry with any file as its database: values stay within the buffer, and a value that was stored is
// read back unchanged.
#include "Fuzz.h"

#include <TempPrefix.h>
#include <algorithm>
#include <vector>
#include <windows.h>

using fuzz::Require;

namespace
{

constexpr LPCTSTR valueName = _T("StyleAtlas");

// The value's bytes, if the result is ERROR_SUCCESS.
LONG Query(HKEY key, DWORD room, std::string& bytes)
{
    constexpr BYTE untouched = 0xCC;
    std::vector<BYTE> buffer(room, untouched);
    DWORD type = 0;
    DWORD size = room;
    const LONG result = RegQueryValueExW(key, valueName, nullptr, &type, buffer.data(), &size);
    const DWORD used = result == ERROR_SUCCESS ? size : 0;
    Require(used <= room && (result != ERROR_MORE_DATA || size > room), "a value is told of another size");
    Require(std::all_of(buffer.begin() + used, buffer.end(), [](BYTE b) { return b == untouched; }),
            "what no value fills is changed");
    bytes.assign(buffer.begin(), buffer.begin() + used);
    return result;
}

} // namespace

void fuzz::Try(std::string_view bytes)
{
    static const test::TempPrefix prefix;
    for (const auto& entry : std::filesystem::directory_iterator(prefix.Path()))
        std::filesystem::remove_all(entry);
    test::WriteWhole(prefix.Path() / "registry.db", bytes);

    constexpr REGSAM access = KEY_READ | KEY_WRITE;
    constexpr LPCTSTR subKey = _T("S-1\\Any");
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_USERS, subKey, 0, access, &key) != ERROR_SUCCESS &&
        RegCreateKeyExW(HKEY_USERS, subKey, 0, nullptr, 0, access, nullptr, &key, nullptr) != ERROR_SUCCESS)
        return; // no database
    std::string value;
    Query(key, 8, value);
    Query(key, 2048, value);
    const std::string chosen("C\0:\0\0", 6);
    if (RegSetValueExW(key, valueName, 0, REG_SZ, reinterpret_cast<const BYTE*>(chosen.data()),
                       static_cast<DWORD>(chosen.size())) == ERROR_SUCCESS &&
        Query(key, 2048, value) == ERROR_SUCCESS)
        Require(value == chosen, "a value comes back as another");
    RegCloseKey(key);
}
