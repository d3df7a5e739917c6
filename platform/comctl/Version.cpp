// The built-in module comctl32.dll, which gives the version of the controls.
#include <BuiltInModule.h>
#include <commctrl.h>
#include <shlobj.h>

namespace
{

constexpr DWORD majorVersion = 6;
constexpr DWORD platformId = 2;

HRESULT DllGetVersion(DLLVERSIONINFO* version)
{
    if (version == nullptr || version->cbSize != sizeof *version)
        return E_INVALIDARG;
    *version = {sizeof *version, majorVersion, 0, 0, platformId};
    return S_OK;
}

const ModuleExport exports[] = {{"DllGetVersion", reinterpret_cast<void*>(&DllGetVersion)},
                                {nullptr, nullptr}};
const BuiltInModule module(u"comctl32.dll", exports);

} // namespace
