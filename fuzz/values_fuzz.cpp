// The path in the registry, as a value of any type (the first byte): anything but a text gives the default.
#include "Fuzz.h"

#include <RegistryKey.h>
#include <TempPrefix.h>
#include <cstring>
#include <model/StyleAtlas.h>
#include <system/MessageBoxHook.h>

namespace
{

CString LoadedPath(LPCTSTR subKey)
{
    k_StyleAtlas atlas;
    atlas.RegistryPath = subKey;
    atlas.Load(CString());
    return atlas.FilePath;
}

} // namespace

void fuzz::Try(std::string_view bytes)
{
    static const test::TempPrefix prefix;
    SetMessageBoxHook([](HWND, LPCWSTR, LPCWSTR, UINT) { return IDOK; });
    static const CString defaultPath = LoadedPath(_T("S-1\\None"));
    if (bytes.empty())
        return;
    const auto type = static_cast<DWORD>(bytes.front());
    bytes.remove_prefix(1);
    test::RegistryKey key;
    Require(key.Create(_T("S-1\\Any")) == ERROR_SUCCESS, "no key");
    Require(key.Set(std::string(bytes), _T("StyleAtlas"), type) == ERROR_SUCCESS, "no value");

    std::u16string text(bytes.size() / 2, u'\0');
    std::memcpy(text.data(), bytes.data(), 2 * text.size());
    const bool isText = (type == REG_SZ || type == REG_EXPAND_SZ) && bytes.size() % 2 == 0 &&
                        bytes.size() <= 2048 && (text.empty() || text.back() == u'\0');
    const CString path = LoadedPath(_T("S-1\\Any"));
    Require(path == (isText ? CString(text.c_str()) : defaultPath), "the value gives another path");
    Require(LoadedPath(_T("S-1\\Any")) == path, "the second load gives another path than the first");
}
