// Where the layout file stands, and what a missing, damaged or unwritable one does to the table.
#include "Host.h"
#include "Language.h"
#include "StyleAtlas.h"

#include <afxpriv.h>
#include <afxwin.h>
#include <algorithm>
#include <new>
#include <shlobj.h>

namespace
{

constexpr const TCHAR* valueName = _T("StyleAtlas");
constexpr REGSAM settingsAccess = KEY_READ | KEY_WRITE;
constexpr int pathBufferLength = 1024; // characters, with the terminator
constexpr int archiveBufferSize = 4096;
constexpr int mostKept = 99; // files of one name that could not be read

// A key of the registry with the value that names the layout file. Where it can't be opened the handle is
// null: what is read then is not valid, and what is written is lost.
class SettingsKey
{
public:
    explicit SettingsKey(const CString& subKey) : m_subKey(subKey) {}
    SettingsKey(const SettingsKey&) = delete;
    SettingsKey& operator=(const SettingsKey&) = delete;
    ~SettingsKey()
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

    // False, and nothing, unless the value is a text: with its terminator, or of size 0, which is the empty
    // text. No memory is taken after the query, so that what was read is what is in use from then on.
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

CString DefaultPath()
{
    TCHAR folder[MAX_PATH] = {};
    SHGetFolderPathW(nullptr, CSIDL_COMMON_APPDATA, nullptr, SHGFP_TYPE_DEFAULT, folder);
    CString path;
    if (g_ApplicationName.IsEmpty())
        path.Format(_T("%s\\Halvorn\\Style.Atlas"), folder);
    else
        path.Format(_T("%s\\Halvorn\\%s\\Style.Atlas"), folder, g_ApplicationName.GetString());
    return path;
}

// As much of a path as the buffer of a registry value holds, cut at a whole character.
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

bool OpenForReading(CFile& file, const CString& path)
{
    try {
        return file.Open(path, CFile::modeRead) != FALSE;
    } catch (CException* e) {
        e->Delete();
        return false;
    }
}

void ShowLoadFailure()
{
    const TCHAR* const text =
        g_Language.GetUnStrippedText(_T("Cannot load style atlas."), k_LanguageSection, true);
    const TCHAR* const caption = g_Language.GetUnStrippedText(_T("Error"), _T("Language"), true);
    MessageBoxW(nullptr, text, caption, MB_ICONEXCLAMATION);
}

} // namespace

int k_StyleAtlas::Load(CString path)
{
    if (path.IsEmpty()) {
        ReadFilePath();
        path = FilePath;
    }
    RememberUnread(path); // until it has been read
    CFile file;
    if (!OpenForReading(file, path)) {
        BuildCatalogue();
        ApplyDefaultStyles();
        return 1;
    }
    try {
        BuildCatalogue();
        CArchive archive(&file, CArchive::load, archiveBufferSize);
        Serialize(archive);
        archive.Close();
        file.Close();
        ForgetUnread(path);
        return 0;
    } catch (CException* e) {
        e->Delete();
    } catch (...) { // told below, like the framework's own
    }
    ShowLoadFailure();
    BuildCatalogue();
    return 1;
}

// Takes FilePath from the registry, or else the default path, which the registry then gets.
void k_StyleAtlas::ReadFilePath()
{
    SettingsKey key(RegistryPath);
    key.OpenOrCreate();
    CString path;
    if (!key.ReadPath(path)) {
        path = DefaultPath();
        key.WritePath(path);
        path = CutToBuffer(path);
    }
    FilePath = path;
}

void k_StyleAtlas::RememberUnread(const CString& path)
{
    ForgetUnread(path);
    try {
        UnreadFiles.push_back(path);
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}

void k_StyleAtlas::ForgetUnread(const CString& path)
{
    std::erase_if(UnreadFiles, [&path](const CString& unread) { return unread.CompareNoCase(path) == 0; });
}

// One that is not there, or no longer, leaves nothing to be kept.
void k_StyleAtlas::KeepUnread(const CString& path)
{
    const auto isSame = [&path](const CString& unread) { return unread.CompareNoCase(path) == 0; };
    if (std::ranges::none_of(UnreadFiles, isSame))
        return;
    for (int number = 1; number <= mostKept; ++number) {
        CString copy;
        copy.Format(number == 1 ? _T("%s.damaged") : _T("%s.damaged%d"), path.GetString(), number);
        if (CopyFileW(path, copy, TRUE) != FALSE || GetLastError() == ERROR_FILE_NOT_FOUND) {
            ForgetUnread(path);
            return;
        }
        if (GetLastError() != ERROR_FILE_EXISTS)
            break;
    }
    AfxThrowFileException(CFileException::accessDenied, 0, path);
}

bool k_StyleAtlas::Save(CString path)
{
    if (path.IsEmpty())
        path = FilePath;
    CMirrorFile file;
    try {
        KeepUnread(path);
        if (!file.Open(path, CFile::modeCreate | CFile::modeWrite))
            return false;
    } catch (CException* e) {
        e->Delete();
        MessageBoxW(nullptr, _T("Cannot save style atlas"), _T("Error"), MB_ICONEXCLAMATION);
        return false;
    }
    // A table that went out only in part is given up, not flushed.
    CArchive archive(&file, CArchive::store | CArchive::bNoFlushOnDelete, archiveBufferSize);
    Serialize(archive);
    archive.Close();
    file.Close();
    FilePath = path;
    return false;
}

bool k_StyleAtlas::SetFilePath(CString path)
{
    if (path.IsEmpty())
        return false;
    {
        SettingsKey key(RegistryPath);
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

    SettingsKey key(newKey); // open until the user's table has been loaded
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
