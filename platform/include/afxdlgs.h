// The system's file dialog, in the class framework's form.
#pragma once

#include <afxwin.h>
#include <commdlg.h>

// Asks for an existing file to open, or for a file to save to. Paths have drives, or are native absolute ones
// for files outside of the drives. A folder that doesn't exist is replaced by its nearest existing parent.
class CFileDialog
{
public:
    // The filter is "label|pattern;pattern|label|pattern||"; *.* matches all files.
    explicit CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt = nullptr, LPCTSTR lpszFileName = nullptr,
                         DWORD dwFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, LPCTSTR lpszFilter = nullptr,
                         CWnd* pParentWnd = nullptr, DWORD dwSize = 0, BOOL bVistaStyle = TRUE);

    // IDOK or IDCANCEL; IDCANCEL without a display.
    INT_PTR DoModal();

    // The chosen file after IDOK, otherwise the initial one.
    CString GetPathName() const { return m_strFile; }

    // May be changed before DoModal.
    OPENFILENAMEW m_ofn{};

private:
    BOOL m_bOpenFileDialog;
    CString m_strFile;
    CString m_strFilter;
};
