#include "HelpMenu.h"

#include "MessageBox.h"
#include "WindowText.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenuBar>
#include <QUrl>

namespace atlashost
{
namespace
{

QString ManualPath()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + "/" ATLAS_HOST_BIN_TO_MANUAL
                                                                    "/index.html");
}

void ShowManual(QWidget& window)
{
    const QString path = ManualPath();
    if (!QFileInfo{path}.isFile())
        ShowMessage(window, QMessageBox::Information,
                    WindowText("The manual is not installed. It is the package styleatlas-doc, and belongs "
                               "into %1; its pages are in the folder docs of the source code.",
                               path));
    else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        ShowMessage(window, QMessageBox::Warning,
                    WindowText("No browser can be started. The manual is in %1.", path));
}

void ShowAbout(QWidget& window)
{
    const std::string text =
        Text("Atlas Host %1\n\nLists and plots measured data in the styles of the style atlas.\n\n"
             "Licence: none has been chosen yet; all rights are reserved.\nQt %2",
             {ATLAS_HOST_VERSION, qVersion()});
    ShowMessage(window, QMessageBox::NoIcon, text.c_str()).setIconPixmap(window.windowIcon().pixmap(64));
}

} // namespace

void AddHelpMenu(QMainWindow& window)
{
    QMenu& menu = *window.menuBar()->addMenu(WindowText("&Help"));
    menu.addAction(WindowText("&Manual"), QKeySequence::HelpContents, &window,
                   [&window] { ShowManual(window); });
    menu.addSeparator();
    menu.addAction(WindowText("&About Atlas Host"), &window, [&window] { ShowAbout(window); });
    menu.addAction(WindowText("About &Qt"), &window, &QApplication::aboutQt);
}

} // namespace atlashost
