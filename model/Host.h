// What the host said of itself.
#pragma once

#include <afxstr.h>

extern CString g_ApplicationName; // letter for letter
extern CString g_RegistryPath;    // the registry subkey that this name chose
