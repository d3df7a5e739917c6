// The registry with any file as its database: values stay within the buffer, and survive a round trip.
#include "Fuzz.h"

#include <RegistryKey.h>
#include <TempPrefix.h>

void fuzz::Try(std::string_view bytes)
{
    static const test::TempPrefix prefix;
    for (const auto& entry : std::filesystem::directory_iterator(prefix.Path()))
        std::filesystem::remove_all(entry);
    test::WriteWhole(prefix.Path() / "registry.db", bytes);

    constexpr LPCTSTR subKey = _T("S-1\\Any");
    test::RegistryKey key;
    if (key.Open(subKey) != ERROR_SUCCESS && key.Create(subKey) != ERROR_SUCCESS)
        return; // no database
    for (const DWORD room : {8U, 2048U})
        Require(key.Get(_T("StyleAtlas"), room) != "overrun", "a wrong size, or bytes after the value");
    const std::string chosen("C\0:\0\0", 6);
    if (key.Set(chosen) == ERROR_SUCCESS) {
        const std::string value = key.Get();
        Require(value == chosen || value.starts_with("error"), "a value comes back as another");
    }
}
