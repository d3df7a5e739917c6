// The functions that a host calls. Each switches to the module's state, binds the unit library, does its own
// work, and lets no exception through to the host. A host that is ending can outlive the module's objects; a
// call then does nothing.
#include "StyleAtlasApp.h"

#include <dialogs/EditorModule.h>
#include <include/styleatlas.h>
#include <model/Host.h>
#include <model/HostSettings.h>
#include <model/StyleAtlas.h>

namespace
{

constexpr int dialogNotShown = -1;

// Runs the body of an export in the module's state. Returns the failure if there is an exception, which can
// be of any type, as the unit library may raise its own.
template <class Result, class Body> Result RunExport(Result failure, Body body)
{
    if (AfxGetStaticModuleState()->m_bEnding) [[unlikely]]
        return failure;
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    try {
        g_App.BindUnitLibrary();
        return body();
    } catch (CException* e) {
        e->Delete();
    } catch (...) { // nothing useful can be reported to the host
    }
    return failure;
}

template <class Body> void RunExport(Body body)
{
    RunExport(0, [&body] {
        body();
        return 0;
    });
}

// A query raises no exception and takes a few nanoseconds, so it has no handler, and what is done before the
// first one stands out of line.
bool IsReadyForQuery()
{
    return !AfxGetStaticModuleState()->m_bEnding && g_App.m_hUnitLibrary != nullptr;
}

// False if there is no table to query.
[[gnu::noinline, gnu::cold]] bool PrepareQuery()
{
    return RunExport(false, [] { return true; });
}

void LoadTable()
{
    g_StyleAtlas.Load(CString());
}

} // namespace

extern "C" {

int EditStyleAtlas(uintptr_t parentWindow)
{
    return RunExport(dialogNotShown, [=] {
        const auto run =
            reinterpret_cast<k_PfnRunEditor>(GetProcAddress(AfxLoadLibrary(k_EditorModule), k_EditorEntry));
        return run != nullptr ? static_cast<int>(run(reinterpret_cast<HWND>(parentWindow))) : dialogNotShown;
    });
}

int GetStyleAtlas(int16_t fileColumn, uint16_t quantity, uint8_t subQuantity, uint8_t index, uint16_t device,
                  uint32_t flags, uint32_t* symbolColor, int16_t* symbolShape, int16_t* symbolSize,
                  int16_t* symbolFill, uint32_t* lineColor, int16_t* lineStyle, int16_t* lineWidth,
                  uint8_t* useSymbolColor)
{
    if (!IsReadyForQuery() && !PrepareQuery()) [[unlikely]]
        return 0;
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    const QuantityKey key{quantity, subQuantity, index, static_cast<short>(device), flags};
    const k_LineDef* const pStyle = fileColumn >= 0 ? g_StyleAtlas.FindStyle(key, fileColumn) : nullptr;
    if (pStyle == nullptr)
        return 0;
    *symbolColor = pStyle->SymbolColor;
    *symbolShape = pStyle->SymbolShape;
    *symbolSize = pStyle->SymbolSize;
    *symbolFill = pStyle->SymbolFill;
    *lineColor = pStyle->LineColor;
    *lineStyle = pStyle->LineStyle;
    *lineWidth = pStyle->LineWidth;
    *useSymbolColor = pStyle->UseSymbolColor ? 1 : 0;
    return 1;
}

void StyleAtlasChangeUserInfo(const char16_t* userRoot, const char16_t* subKey)
{
    RunExport([&] {
        const CString root = userRoot;
        const CString key = subKey;
        g_StyleAtlas.ChangeUserInfo(root, key);
    });
}

void StyleAtlasSetApplication(const char16_t* applicationName)
{
    RunExport([&] {
        g_ApplicationName = applicationName;
        const CString subKey = k_HostSettings::SubKeyOf(applicationName);
        g_StyleAtlas.SetRegistryPath(subKey);
        g_RegistryPath = subKey;
        LoadTable();
    });
}

void ReloadStyleAtlas(void) // NOLINT(modernize-redundant-void-arg): as the C header declares it
{
    RunExport([] { LoadTable(); });
}

} // extern "C"
