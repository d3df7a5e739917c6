#include "CommandFailure.h"

#include <afxobj.h>
#include <windows.h>

namespace
{

constexpr const TCHAR* caption = _T("Error");

const TCHAR* FormatOf(CFileException::Cause cause)
{
    switch (cause) {
    case CFileException::fileNotFound:
        return _T("%s was not found.");
    case CFileException::accessDenied:
        return _T("Access to %s was denied.");
    case CFileException::diskFull:
        return _T("Disk full while accessing %s.");
    case CFileException::hardIO:
        return _T("A hardware I/O error was reported while accessing %s.");
    default:
        return _T("An unknown error occurred while accessing %s.");
    }
}

CString Describe(const CException& failure)
{
    if (const auto* const file = dynamic_cast<const CFileException*>(&failure)) {
        CString text;
        text.Format(FormatOf(file->m_cause), file->m_strFileName.GetString());
        return text;
    }
    return dynamic_cast<const CMemoryException*>(&failure) != nullptr ? _T("Out of memory.")
                                                                      : _T("Command failed.");
}

} // namespace

void ReportCommandFailure(const CException& failure)
{
    MessageBoxW(nullptr, Describe(failure), caption, MB_ICONEXCLAMATION);
}
