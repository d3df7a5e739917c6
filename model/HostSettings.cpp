#include "HostSettings.h"

#include <shlobj.h>

namespace
{

struct KnownHost {
    const TCHAR* Name;
    const TCHAR* SubKey;
};
constexpr KnownHost knownHosts[] = {
    {_T("Quorvia"), _T(".DEFAULT\\Software\\Halvorn\\Quorvia")},
    {_T("Tandrell"), _T(".DEFAULT\\Software\\Halvorn\\Tandrell\\General")},
};
constexpr const TCHAR* otherHostSubKey = _T(".DEFAULT\\Software\\Halvorn");

} // namespace

const TCHAR* k_HostSettings::SubKeyOf(LPCTSTR hostName)
{
    for (const KnownHost& host : knownHosts) {
        if (_wcsicmp(hostName, host.Name) == 0)
            return host.SubKey;
    }
    return otherHostSubKey;
}

CString k_HostSettings::DefaultPathOf(const CString& hostName)
{
    TCHAR folder[MAX_PATH] = {};
    SHGetFolderPathW(nullptr, CSIDL_COMMON_APPDATA, nullptr, SHGFP_TYPE_DEFAULT, folder);
    CString path;
    if (hostName.IsEmpty())
        path.Format(_T("%s\\Halvorn\\Style.Atlas"), folder);
    else
        path.Format(_T("%s\\Halvorn\\%s\\Style.Atlas"), folder, hostName.GetString());
    return path;
}
