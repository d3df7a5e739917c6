// Binds the unit library: the application object holds its entry points, and the model's calls go to them.
#include "StyleAtlasApp.h"

#include <model/UnitCalls.h>

namespace
{

k_UnitQuantities GetQuantities()
{
    k_UnitQuantities list;
    if (g_App.m_pfnGetQuantities != nullptr)
        g_App.m_pfnGetQuantities(&list.Devices, &list.Quantities, &list.SubQuantities, &list.Indexes,
                                 &list.Flags, &list.Count);
    return list;
}

CString GetSymbol(WORD quantity, WORD subQuantity, DWORD flags, WORD device, WORD index,
                  k_UnitSymbolMode mode)
{
    if (g_App.m_pfnGetSymbol == nullptr)
        return {};
    return g_App.m_pfnGetSymbol(quantity, subQuantity, flags, device, index, mode);
}

} // namespace

CStyleAtlasApp::CStyleAtlasApp()
{
    SetUnitCalls({GetQuantities, GetSymbol});
}

void CStyleAtlasApp::LoadUnitLibrary()
{
    m_hUnitLibrary = LoadLibraryW(_T("mensura.dll"));
    if (m_hUnitLibrary == nullptr) {
        MessageBoxW(nullptr, _T("Cannot load Mensura.dll"), _T("StyleAtlas"), MB_ICONEXCLAMATION);
        return;
    }
    const auto find = [this]<class Entry>(Entry& entry, const char* name) {
        entry = reinterpret_cast<Entry>(GetProcAddress(m_hUnitLibrary, name));
    };
    find(m_pfnChangeUserInfo, "@MensuraChangeUserInfoW$qqspbt1us");
    find(m_pfnGetQuantities, "@MensuraGetQuantitiesW$qqsrpust1rpit1rpulri");
    find(m_pfnGetSymbol, "MensuraGetSymbolW");
    find(m_pfnGetName, "MensuraGetNameW");
}
