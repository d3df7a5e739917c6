// The module of the common controls, as programs see it that ask for its version. Nothing calls into this
// source by name: the build has the linker look for its function.
#include <BuiltInModule.h>
#include <commctrl.h>

namespace
{

constexpr DWORD majorVersion = 6;
constexpr DWORD platformNt = 2;

} // namespace

extern "C" HRESULT DllGetVersion(DLLVERSIONINFO* version)
{
    if (version == nullptr || version->cbSize != sizeof(DLLVERSIONINFO))
        return E_INVALIDARG;
    *version = {sizeof(DLLVERSIONINFO), majorVersion, 0, 0, platformNt};
    return S_OK;
}

namespace
{

const ModuleExport exports[] = {{"DllGetVersion", reinterpret_cast<void*>(&DllGetVersion)}, {}};
BuiltInModule module(u"comctl32", exports);

} // namespace
