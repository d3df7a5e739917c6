#include "ColorMessages.h"

UINT g_msgSelChange = RegisterWindowMessageW(_T("ColorPopupSelChange"));
UINT g_msgDropdown = RegisterWindowMessageW(_T("ColorPopupDropdown"));
UINT g_msgCloseUp = RegisterWindowMessageW(_T("ColorPopupCloseUp"));
UINT g_msgSelEndOK = RegisterWindowMessageW(_T("ColorPopupSelEndOK"));
UINT g_msgSelEndChange = RegisterWindowMessageW(_T("ColorPopupSelEndChange"));
