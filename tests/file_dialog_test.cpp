// The system's file dialog, answered by a user.
#include "support/Gui.h"
#include "support/TempPrefix.h"

#include <QtWidgets>
#include <afxdlgs.h>

namespace
{

const test::ScopedVariable german[] = {{"LC_ALL", "de_DE.UTF-8"}, {"LANGUAGE", "de"}};
constexpr Qt::Key unasked{};

// The result of typing a name, and of a key that answers the question; empty if the dialog stays open.
std::u16string Pick(CFileDialog& dialog, const QString& typed, Qt::Key answer, QString& atOpening)
{
    bool isAsked = false;
    test::AnswerNext<QFileDialog>([&](QFileDialog& shown) {
        test::Settle();
        auto& name = *shown.findChild<QLineEdit*>();
        const auto& types = *shown.findChild<QComboBox*>("fileTypeCombo");
        EXPECT_EQ(types.itemText(0) + types.itemText(1), "Layout-files (*.layout)All files (*.*)");
        EXPECT_EQ(shown.nameFilters().last(), "All files (*.*) (*)");
        EXPECT_GT(shown.palette().color(QPalette::Base).lightness(), 200);
        atOpening = shown.windowTitle() + ' ' + shown.directory().path() + ' ' + name.text();
        name.setText(typed);
        QTimer::singleShot(0, &shown, [&] {
            isAsked = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr;
            QTest::keyClick(QApplication::activeModalWidget(), answer);
        });
        QTest::keyClick(&name, Qt::Key_Return);
        if (shown.isVisible())
            shown.reject();
    });
    const INT_PTR result = dialog.DoModal();
    EXPECT_EQ(isAsked, answer != unasked);
    return result == IDOK ? dialog.GetPathName().GetString() : u"";
}

TEST(FileDialog, OpensInTheNearestFolderAndGivesTheFileThatTheUserNames)
{
    const test::TempPrefix prefix;
    const test::DesktopColors dark({{QPalette::Base, RGB(0, 0, 0)}});
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, prefix.Path().c_str());
    test::WriteWhole(prefix.MakeFolder("a") / "x.layout", "");
    test::WriteWhole(prefix.MakeFolder("a") / "\xFF.layout", ""); // not UTF-8
    prefix.MakeFolder("b");
    const QString root = prefix.Path().c_str();
    const std::u16string native = (prefix.Path() / "n.layout").u16string();
    const struct {
        BOOL Opens;
        LPCTSTR File, Folder;
        QString AtOpening, Typed;
        Qt::Key Answer;
        std::u16string Picked;
    } cases[] = {
        {TRUE, _T("C:\\a\\x.layout"), _T("C:\\b"), "/drive_c/a x.layout", "x", unasked, u"C:\\a\\x.layout"},
        {TRUE, _T("x"), _T("C:\\a\\"), "/drive_c/a x", "y", Qt::Key_Escape, u""}, // doesn't exist
        {FALSE, _T(""), _T("C:\\b\\no\\such"), "/drive_c/b ", "y", unasked, u"C:\\b\\y.layout"},
        {FALSE, _T("C:\\no\\x"), nullptr, "/drive_c x", "y.txt", unasked, u"C:\\y.txt"},
        {FALSE, _T("D:\\no\\x"), nullptr, " x", QString::fromStdU16String(native), unasked, native},
        {FALSE, _T("C:\\a\\x"), nullptr, "/drive_c/a x", "x", Qt::Key_Escape, u""}, // refuses to overwrite
        {FALSE, _T("C:\\a\\x"), nullptr, "/drive_c/a x", "x", Qt::Key_J, u"C:\\a\\x.layout"}, // "Ja"
        {FALSE, _T("C:\\a\\\xDC00"), nullptr, QString("/drive_c/a ") + QChar(0xDC00),
         QChar(0xD800) + QString(".e"), unasked, u"C:\\a\\\xD800.e"}};
    for (const auto& c : cases) {
        CFileDialog dialog(c.Opens, _T(".layout"), c.File, OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                           _T("Layout-files (*.layout)|*.layout|All files (*.*)|*.*||"));
        dialog.m_ofn.lpstrInitialDir = c.Folder;
        dialog.m_ofn.lpstrTitle = _T("title");
        QString atOpening;
        EXPECT_EQ(Pick(dialog, c.Typed, c.Answer, atOpening), c.Picked);
        EXPECT_EQ(atOpening, "title " + root + c.AtOpening);
    }
}

} // namespace
