// "Load..." and "Save as..." of the style atlas dialog.
#include "StyleAtlasDialog.h"

#include <afxdlgs.h>
#include <model/Language.h>

namespace
{

constexpr const TCHAR* extension = _T(".layout");
constexpr const TCHAR* filter = _T("Layout-files (*.layout)|*.layout|All files (*.*)|*.*||");
constexpr const TCHAR* folderForLoading = _T("C:\\");
constexpr int driveSize = 3; // characters, the terminator included
constexpr int folderSize = 256;

const TCHAR* Translate(const TCHAR* text)
{
    return g_Language.GetUnStrippedText(text, k_LanguageSection, true);
}

// Drive and folder of a path; empty if they are too long.
CString FolderOf(const CString& path)
{
    TCHAR drive[driveSize];
    TCHAR folder[folderSize];
    if (_wsplitpath_s(path, drive, driveSize, folder, folderSize, nullptr, 0, nullptr, 0) != 0)
        return {};
    return CString(drive) + folder;
}

} // namespace

void k_StyleAtlasDialog::OnLoad()
{
    CFileDialog dialog(TRUE, extension, m_Atlas.FilePath, OFN_HIDEREADONLY, filter, this, 0, TRUE);
    dialog.m_ofn.lpstrInitialDir = folderForLoading;
    dialog.m_ofn.lpstrTitle = Translate(_T("Open Style-Atlas"));
    if (dialog.DoModal() != IDOK)
        return;
    m_LayoutFile = dialog.GetPathName();
    // Delete the rows before the data that they show: a message of Load can repaint the tree.
    m_ColumnTree.m_Tree.SendMessage(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
    m_Atlas.Load(m_LayoutFile);
    m_Atlas.SetFilePath(m_LayoutFile);
    FillTree();
    ShowFilePath();
}

void k_StyleAtlasDialog::OnSaveAs()
{
    CFileDialog dialog(FALSE, extension, m_Atlas.FilePath, OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, filter,
                       nullptr, 0, TRUE);
    const CString folder = FolderOf(m_Atlas.FilePath);
    dialog.m_ofn.lpstrInitialDir = folder;
    dialog.m_ofn.lpstrTitle = Translate(_T("Save Style-Atlas"));
    if (dialog.DoModal() != IDOK)
        return;
    m_LayoutFile = dialog.GetPathName();
    m_Atlas.Save(m_LayoutFile);
    ShowFilePath();
}
