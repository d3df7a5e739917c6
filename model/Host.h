// The host, as it named itself.
#pragma once

#include <afxstr.h>

AFX_EXT_DATA extern CString g_ApplicationName; // exactly as the host passed it
AFX_EXT_DATA extern CString g_RegistryPath;    // the registry subkey selected by the name
