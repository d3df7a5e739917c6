// All objects of the module with static storage, in one source, so that they are constructed in the order in
// which they stand here and destroyed in the reverse order.
#include "ModuleObjects.h"

#include <controls/ColorMessages.h>

UINT g_msgSelChange = RegisterWindowMessageW(_T("ColorPopupSelChange"));
UINT g_msgDropdown = RegisterWindowMessageW(_T("ColorPopupDropdown"));
UINT g_msgCloseUp = RegisterWindowMessageW(_T("ColorPopupCloseUp"));
UINT g_msgSelEndOK = RegisterWindowMessageW(_T("ColorPopupSelEndOK"));
UINT g_msgSelEndChange = RegisterWindowMessageW(_T("ColorPopupSelEndChange"));

k_GlossaW g_Language;
k_StyleAtlas g_StyleAtlas;
CString g_RegistryPath;
CString g_ApplicationName;
CStyleAtlasApp g_App;
