// The choice of the layout file: the one that the registry names, or else one at a default path.
#include "Host.h"
#include "HostSettings.h"
#include "StyleAtlas.h"

#include <afxwin.h>

namespace
{

constexpr const TCHAR* valueName = _T("StyleAtlas");
constexpr REGSAM settingsAccess = KEY_READ | KEY_WRITE;
constexpr int pathBufferLength = 1024; // characters, with the terminator

// The registry key with the value that names the layout file. If it can't be opened, the handle is null:
// reads fail and writes are lost.
class k_SettingsKey
{
public:
    explicit k_SettingsKey(const CString& subKey) : m_subKey(subKey) {}
    k_SettingsKey(const k_SettingsKey&) = delete;
    k_SettingsKey& operator=(const k_SettingsKey&) = delete;
    ~k_SettingsKey()
    {
        if (m_key != nullptr)
            RegCloseKey(m_key);
    }

    bool Open() { return RegOpenKeyExW(HKEY_USERS, m_subKey, 0, settingsAccess, &m_key) == ERROR_SUCCESS; }
    void Create()
    {
        RegCreateKeyExW(HKEY_USERS, m_subKey, 0, nullptr, 0, settingsAccess, nullptr, &m_key, nullptr);
    }
    void OpenOrCreate()
    {
        if (!Open())
            Create();
    }

    // Returns false and leaves path as it is unless the value is a text: either terminated, or of size 0,
    // which is the empty text. Nothing is allocated after the query, so a path that was read always comes
    // into use.
    bool ReadPath(CString& path) const
    {
        CString text;
        TCHAR* const buffer = text.GetBufferSetLength(pathBufferLength);
        DWORD type = 0;
        DWORD size = pathBufferLength * sizeof(TCHAR);
        if (RegQueryValueExW(m_key, valueName, nullptr, &type, reinterpret_cast<BYTE*>(buffer), &size) !=
            ERROR_SUCCESS)
            return false;
        const bool isText = type == REG_SZ || type == REG_EXPAND_SZ;
        const bool isEnded =
            size == 0 || (size % sizeof(TCHAR) == 0 && buffer[size / sizeof(TCHAR) - 1] == 0);
        if (!isText || !isEnded)
            return false;
        text.ReleaseBuffer();
        path = text;
        return true;
    }

    void WritePath(const CString& path) const
    {
        const auto size = static_cast<DWORD>((path.GetLength() + 1) * static_cast<int>(sizeof(TCHAR)));
        RegSetValueExW(m_key, valueName, 0, REG_SZ, reinterpret_cast<const BYTE*>(path.GetString()), size);
    }

private:
    CString m_subKey;
    HKEY m_key = nullptr;
};

// The path, shortened to what the buffer of a registry value holds, without splitting a character.
CString CutToBuffer(const CString& path)
{
    int length = pathBufferLength - 1;
    if (path.GetLength() <= length)
        return path;
    const TCHAR last = path.GetAt(length - 1);
    const bool isHighSurrogate = last >= 0xD800 && last < 0xDC00;
    if (isHighSurrogate)
        --length;
    return {path.GetString(), length};
}

} // namespace

// Sets FilePath to the path in the registry or, if there is none, to the default path, which is then stored
// there.
void k_StyleAtlas::ReadFilePath()
{
    k_SettingsKey key(RegistryPath);
    key.OpenOrCreate();
    CString path;
    if (!key.ReadPath(path)) {
        path = k_HostSettings::DefaultPathOf(g_ApplicationName);
        key.WritePath(path);
        path = CutToBuffer(path);
    }
    FilePath = path;
}

CString k_StyleAtlas::GetStoredFilePath() const
{
    k_SettingsKey key(RegistryPath);
    CString path;
    return key.Open() && key.ReadPath(path) ? path
                                            : CutToBuffer(k_HostSettings::DefaultPathOf(g_ApplicationName));
}

bool k_StyleAtlas::SetFilePath(CString path)
{
    if (path.IsEmpty())
        return false;
    {
        k_SettingsKey key(RegistryPath);
        key.OpenOrCreate();
        key.WritePath(path);
    }
    FilePath = path;
    return true;
}

void k_StyleAtlas::SetRegistryPath(CString subKey)
{
    RegistryPath = subKey;
    if (!FilePath.IsEmpty())
        SetFilePath(FilePath);
}

void k_StyleAtlas::ChangeUserInfo(CString userRoot, CString subKey)
{
    CString newKey = userRoot;
    if (newKey.IsEmpty() || newKey.GetAt(newKey.GetLength() - 1) != _T('\\'))
        newKey += _T('\\');
    newKey += subKey;

    k_SettingsKey key(newKey); // stays open until the user's table has been loaded
    if (key.Open()) {
        if (!key.ReadPath(FilePath))
            key.WritePath(FilePath);
    } else {
        key.Create();
        key.WritePath(FilePath);
    }
    RegistryPath = newKey;
    Load(CString());
}
