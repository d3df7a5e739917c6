// The window of the program: measured files, their plot, and the commands for their styles.
#pragma once

#include "LibraryCalls.h"
#include "PlotData.h"
#include "UserDialog.h"

#include <QByteArrayList>
#include <QMainWindow>

#include <functional>
#include <string>
#include <vector>

class QActionGroup;
class QKeySequence;
class QLabel;
class QMenu;
class QPlainTextEdit;

namespace atlashost
{

class FileList;
class PlotView;
class RecentFiles;
class StartPage;
class StyleCheckDialog;

// Files are added by the menu, by drag and drop, or by the program; the first is file column 0, and so on.
// Errors in files are shown below the list of files.
class MainWindow : public QMainWindow
{
public:
    // The host must have named itself to the style atlas before.
    explicit MainWindow(const QString& hostName, LibraryCalls calls = {});

    // Paths are bytes, in any encoding.
    void AddFiles(const QByteArrayList& paths);

    // Errors of the program's start, which stay below the list of files.
    void SetStartErrors(std::vector<std::string> errors);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void MakeParts();
    void MakeMenus();
    void AddCommand(QMenu& menu, const QString& text, const QKeySequence& keys,
                    void (MainWindow::*command)());

    void OpenFiles();
    void RemoveFiles();
    void MoveFilesUp();
    void MoveFilesDown();
    void ReadFiles();

    void EditStyles();
    void CheckStyles();
    void ReloadStyles();
    void SwitchUser();
    void CallLibrary(const std::function<void()>& call);
    void ShowNewStyles(const QString& message);

    void ShowCounts();
    void Warn(const QString& text);

    const QString m_hostName;
    const LibraryCalls m_calls;
    UserSettings m_settings;
    std::vector<std::string> m_startErrors;
    Plot m_plot;
    PlotView* m_view = nullptr;
    FileList* m_files = nullptr;
    QPlainTextEdit* m_remarks = nullptr;
    QLabel* m_counts = nullptr;
    QActionGroup* m_commands = nullptr;
    RecentFiles* m_recent = nullptr;
    StartPage* m_start = nullptr;
    StyleCheckDialog* m_check = nullptr;
};

} // namespace atlashost
