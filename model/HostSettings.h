// What the name of a host chooses.
#pragma once

#include <afxstr.h>

class AFX_EXT_CLASS k_HostSettings
{
public:
    // The registry subkey below HKEY_USERS. The case of A to Z doesn't count.
    static const TCHAR* SubKeyOf(LPCTSTR hostName);

    // The default path of the layout file. An empty name stands for the folder above.
    static CString DefaultPathOf(const CString& hostName);
};
