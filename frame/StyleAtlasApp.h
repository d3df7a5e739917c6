// The module's application object, which holds the unit library.
#pragma once

#include <afxwin.h>

// The unit library's entry points, with the parameter types that its own header declares: calls through any
// other type are undefined. If an argument is wider than its member of QuantityKey, only the member's width
// counts. Arrays and texts stay the unit library's.
using k_PfnChangeUserInfo = void(WINAPI*)(const WCHAR* userRoot, const WCHAR* subKey, WORD options);
using k_PfnGetSymbol = const WCHAR*(WINAPI*)(DWORD quantity, DWORD subQuantity, DWORD flags, DWORD device,
                                             DWORD index, int mode);
using k_PfnGetName = const WCHAR*(WINAPI*)(DWORD quantity, DWORD subQuantity, DWORD flags, DWORD device,
                                           DWORD index);
using k_PfnGetQuantities = void(WINAPI*)(WORD** devices, WORD** quantities, int** subQuantities,
                                         WORD** indexes, DWORD** flags, int* count);

class AFX_EXT_CLASS CStyleAtlasApp : public CWinApp
{
public:
    CStyleAtlasApp();
    ~CStyleAtlasApp() override;

    // Loads the unit library and finds its entry points, unless that has been done. A missing entry point
    // stays null. A library that can't be loaded is reported in a message, and tried again at the next call.
    void BindUnitLibrary()
    {
        if (m_hUnitLibrary == nullptr)
            LoadUnitLibrary();
    }

    // Attaches the language library to the module.
    BOOL InitInstance() override;

    HMODULE m_hUnitLibrary = nullptr; // stays loaded until the process ends
    k_PfnChangeUserInfo m_pfnChangeUserInfo = nullptr;
    k_PfnGetSymbol m_pfnGetSymbol = nullptr;
    k_PfnGetName m_pfnGetName = nullptr;
    k_PfnGetQuantities m_pfnGetQuantities = nullptr;

private:
    void LoadUnitLibrary();

    DECLARE_MESSAGE_MAP()
};

AFX_EXT_DATA extern CStyleAtlasApp g_App;
