// The system's file dialog, in the class framework's form.
#pragma once

#include <afxwin.h>

constexpr DWORD OFN_OVERWRITEPROMPT = 0x0002; // a file that is there is replaced only when the user says so
constexpr DWORD OFN_HIDEREADONLY = 0x0004;    // there is nothing to hide here

// Texts are to outlive DoModal; null is none.
struct OPENFILENAMEW {
    DWORD lStructSize;
    HWND hwndOwner;
    LPCWSTR lpstrInitialDir; // where the dialog opens, unless the file name has a folder
    LPCWSTR lpstrTitle;
    DWORD Flags;
    LPCWSTR lpstrDefExt; // for a name without an extension; a dot before it doesn't count
};

// Asks for a file that is there, to open it, or for one to save to. Paths are those of the drives, or native
// absolute ones for what stands on no drive; a folder that doesn't exist stands for the nearest one above it
// that does.
class CFileDialog
{
public:
    // The filter is "label|pattern;pattern|label|pattern||"; *.* fits all files.
    explicit CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt = nullptr, LPCTSTR lpszFileName = nullptr,
                         DWORD dwFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, LPCTSTR lpszFilter = nullptr,
                         CWnd* pParentWnd = nullptr, DWORD dwSize = 0, BOOL bVistaStyle = TRUE);

    // IDOK or IDCANCEL; also IDCANCEL where there is no display.
    INT_PTR DoModal();

    // The user's file after IDOK, else the name at opening.
    CString GetPathName() const { return m_strFile; }

    // To be changed before DoModal.
    OPENFILENAMEW m_ofn{};

private:
    BOOL m_bOpenFileDialog;
    CString m_strFile;
    CString m_strFilter;
};
