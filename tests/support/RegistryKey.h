// Keys of the registry in a test.
#pragma once

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

namespace test
{

constexpr DWORD binaryType = 3; // the number of another type than the texts'

// An open key; null where it can't be opened.
class RegistryKey
{
public:
    RegistryKey() = default;
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    ~RegistryKey() { RegCloseKey(m_key); }

    LONG Open(LPCTSTR name, REGSAM access = KEY_READ | KEY_WRITE)
    {
        return RegOpenKeyExW(HKEY_USERS, name, 0, access, &m_key);
    }
    LONG Create(LPCTSTR name, REGSAM access = KEY_READ | KEY_WRITE)
    {
        return RegCreateKeyExW(HKEY_USERS, name, 0, nullptr, 0, access, nullptr, &m_key, nullptr);
    }
    LONG Set(const std::string& bytes, LPCTSTR name = _T("StyleAtlas"), DWORD type = REG_SZ) const
    {
        const auto* const data = reinterpret_cast<const BYTE*>(bytes.data());
        return RegSetValueExW(m_key, name, 0, type, data, static_cast<DWORD>(bytes.size()));
    }

    // The value, if a buffer of that many bytes holds it; else "error", its number and the reported size.
    // "overrun" if the size is wrong or bytes after the value are changed.
    std::string Get(LPCTSTR name = _T("StyleAtlas"), DWORD room = 2048, DWORD* type = nullptr) const
    {
        constexpr BYTE untouched = 0xCC;
        std::vector<BYTE> buffer(room, untouched);
        DWORD size = room;
        DWORD ignored = 0;
        const LONG result =
            RegQueryValueExW(m_key, name, nullptr, type ? type : &ignored, buffer.data(), &size);
        const DWORD used = result == ERROR_SUCCESS ? std::min(size, room) : 0;
        if ((result == ERROR_SUCCESS && size > room) || (result == ERROR_MORE_DATA && size <= room) ||
            std::any_of(buffer.begin() + used, buffer.end(), [](BYTE b) { return b != untouched; }))
            return "overrun";
        if (result == ERROR_SUCCESS)
            return {buffer.begin(), buffer.begin() + used};
        return "error " + std::to_string(result) + " " + std::to_string(size);
    }

private:
    HKEY m_key = nullptr;
};

} // namespace test
