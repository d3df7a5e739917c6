// Loading and saving the layout file, with the handling of missing, damaged and unwritable files.
#include "Language.h"
#include "StyleAtlas.h"

#include <afxpriv.h>
#include <afxwin.h>
#include <algorithm>
#include <new>

namespace
{

constexpr int archiveBufferSize = 4096;
constexpr int maxKept = 99; // copies of one unreadable file

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
    RememberUnread(path); // forgotten below, once it has been read
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
        ForgetUnread(path);
        return 0;
    } catch (CException* e) {
        e->Delete();
    } catch (...) { // reported below, like the framework's own
    }
    ShowLoadFailure();
    BuildCatalogue();
    return 1;
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

// Copies a file that Load could not read, before it is overwritten. A missing file needs no copy.
void k_StyleAtlas::BackUpUnread(const CString& path)
{
    const auto isSame = [&path](const CString& unread) { return unread.CompareNoCase(path) == 0; };
    if (std::ranges::none_of(UnreadFiles, isSame))
        return;
    for (int number = 1; number <= maxKept; ++number) {
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
        BackUpUnread(path);
        if (!file.Open(path, CFile::modeCreate | CFile::modeWrite))
            return false;
    } catch (CException* e) {
        e->Delete();
        MessageBoxW(nullptr, _T("Cannot save style atlas"), _T("Error"), MB_ICONEXCLAMATION);
        return false;
    }
    // If an exception interrupts the writing, the archive must not flush its buffer.
    CArchive archive(&file, CArchive::store | CArchive::bNoFlushOnDelete, archiveBufferSize);
    Serialize(archive);
    archive.Close();
    file.Close();
    FilePath = path;
    return false;
}
