#include <Application.h>
#include <Paths.h>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QMimeDatabase>
#include <QPointer>
#include <QScopeGuard>
#include <QtConvert.h>
#include <Unicode.h>
#include <WindowColors.h>
#include <afxdlgs.h>
#include <filesystem>

namespace
{

using std::filesystem::path;

QString ToQString(const path& native)
{
    return gdi::ToQString(ToUtf16(native.native()));
}

CString PathOf(const QString& native)
{
    const std::u16string text = DrivePath(ToUtf8(gdi::ToView(native)));
    return {text.data(), static_cast<int>(text.size())};
}

// Qt takes the patterns from the end of the label, and hides them.
QStringList NameFilters(std::u16string_view filter)
{
    QStringList filters;
    const QStringList parts = gdi::ToQString(filter).split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size() && !parts[i + 1].isEmpty(); i += 2) {
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        for (QString& pattern : patterns)
            pattern = pattern == u"*.*" ? QStringLiteral("*") : pattern.trimmed();
        filters += QStringLiteral("%1 (%2)").arg(parts[i], patterns.join(u' '));
    }
    return filters;
}

path NearestFolder(path folder)
{
    std::error_code ignored;
    while (folder.has_relative_path() && !is_directory(folder, ignored))
        folder = folder.parent_path();
    return folder;
}

// Determines types from names alone: Qt would read every file of a folder, and hang at a link to a device.
class NameIcons : public QFileIconProvider
{
public:
    using QFileIconProvider::icon;

    QIcon icon(const QFileInfo& file) const override { return icon(file.isDir() ? Folder : File); }
    QString type(const QFileInfo& file) const override
    {
        return QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension).comment();
    }
};

// The desktop's own dialog would add the extension after it has asked about overwriting.
void SetUp(QFileDialog& dialog, const OPENFILENAMEW& wanted, bool opens)
{
    dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::HideNameFilterDetails);
    dialog.setAcceptMode(opens ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog.setFileMode(opens ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    if (wanted.lpstrTitle != nullptr)
        dialog.setWindowTitle(gdi::ToQString(wanted.lpstrTitle));
    if (wanted.lpstrDefExt != nullptr)
        dialog.setDefaultSuffix(gdi::ToQString(wanted.lpstrDefExt));
}

void Select(QFileDialog& dialog, const path& file, LPCWSTR initialFolder)
{
    path folder = file.parent_path();
    if (folder.empty() && initialFolder != nullptr)
        folder = NativePath(initialFolder);
    folder = NearestFolder(folder);
    if (!folder.empty())
        dialog.setDirectory(ToQString(folder));
    dialog.selectFile(ToQString(file.filename()));
}

} // namespace

CFileDialog::CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt, LPCTSTR lpszFileName, DWORD /*dwFlags*/,
                         LPCTSTR lpszFilter, CWnd* pParentWnd, DWORD /*dwSize*/, BOOL /*bVistaStyle*/)
    : m_bOpenFileDialog(bOpenFileDialog), m_strFile(lpszFileName != nullptr ? lpszFileName : _T("")),
      m_strFilter(lpszFilter != nullptr ? lpszFilter : _T(""))
{
    m_ofn.hwndOwner = pParentWnd != nullptr ? pParentWnd->GetSafeHwnd() : nullptr;
    m_ofn.lpstrDefExt = lpszDefExt;
}

INT_PTR CFileDialog::DoModal()
{
    const ApplicationHolder application;
    if (!CanShowWindows())
        return IDCANCEL;
    // The owner may delete the dialog.
    NameIcons icons; // outlives the dialog
    const QPointer dialog(new QFileDialog(DialogOwner(m_ofn.hwndOwner)));
    const auto end = qScopeGuard([&dialog] { delete dialog; });
    dialog->setIconProvider(&icons);
    UseWindowColors(*dialog);
    SetUp(*dialog, m_ofn, m_bOpenFileDialog != FALSE);
    dialog->setNameFilters(NameFilters(m_strFilter.GetString()));
    Select(*dialog, NativePath(m_strFile.GetString()), m_ofn.lpstrInitialDir);
    if (dialog->exec() != QDialog::Accepted || dialog.isNull() || dialog->selectedFiles().isEmpty())
        return IDCANCEL;
    m_strFile = PathOf(dialog->selectedFiles().constFirst());
    return IDOK;
}
