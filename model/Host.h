// What the host said of itself.
#pragma once

#include <afxstr.h>

AFX_EXT_DATA extern CString g_ApplicationName; // letter for letter
AFX_EXT_DATA extern CString g_RegistryPath;    // the registry subkey that this name chose
