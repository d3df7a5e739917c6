#include "MainWindow.h"

#include "FileLimit.h"
#include "FileList.h"
#include "HelpMenu.h"
#include "MessageBox.h"
#include "PlotCommands.h"
#include "PlotView.h"
#include "ReadingProgress.h"
#include "RecentFiles.h"
#include "StartPage.h"
#include "StyleCheckDialog.h"
#include "WindowMemory.h"
#include "WindowText.h"

#include <QActionGroup>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStatusBar>
#include <QUrl>

#include <algorithm>
#include <exception>
#include <functional>
#include <stdexcept>

namespace atlashost
{
namespace
{

constexpr QSize GoodWindow{1280, 860};
constexpr int SideWidth = 230;
constexpr int RemarksHeight = 160;
constexpr int MaxRemarks = 1000;    // lines
constexpr int MessageTime = 10'000; // milliseconds

QByteArrayList LocalFiles(const QMimeData& data)
{
    QByteArrayList paths;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            paths.append(QFile::encodeName(url.toLocalFile()));
    }
    return paths;
}

std::size_t CurveCount(const Plot& plot)
{
    std::size_t count = 0;
    for (const Panel& panel : plot.panels)
        count += panel.curves.size();
    return count;
}

} // namespace

MainWindow::MainWindow(const QString& hostName, LibraryCalls calls) : m_hostName{hostName}, m_calls{calls}
{
    setWindowTitle(WindowText("Curves") + (hostName.isEmpty() ? "" : " - " + hostName));
    setObjectName("curves");
    setAcceptDrops(true);
    MakeParts();
    MakeMenus();
    ReadFiles();
    resize(FittingSize(*this, GoodWindow));
    RestoreWindow(*this);
}

void MainWindow::MakeParts()
{
    m_files = new FileList{[this] { ReadFiles(); }};
    m_remarks = new QPlainTextEdit;
    m_remarks->setReadOnly(true);
    m_remarks->setAcceptDrops(false);
    m_remarks->setMaximumBlockCount(MaxRemarks);
    m_view = new PlotView{m_plot};
    m_check = new StyleCheckDialog{
        m_plot, [this](std::vector<CurvePlace> curves) { m_view->Mark(std::move(curves)); }, this};
    auto* const side = new QSplitter{Qt::Vertical};
    side->setObjectName("side");
    side->addWidget(m_files);
    side->addWidget(m_remarks);
    side->setSizes({GoodWindow.height() - RemarksHeight, RemarksHeight});
    auto* const all = new QSplitter;
    all->setObjectName("all");
    all->addWidget(side);
    all->addWidget(m_view);
    all->setSizes({SideWidth, GoodWindow.width() - SideWidth});
    all->setStretchFactor(1, 1);
    setCentralWidget(all);
    m_counts = new QLabel;
    statusBar()->addPermanentWidget(m_counts);
}

void MainWindow::MakeMenus()
{
    m_commands = new QActionGroup{this};
    QMenu& file = *menuBar()->addMenu(WindowText("&File"));
    AddCommand(file, WindowText("&Open..."), Qt::CTRL | Qt::Key_O, &MainWindow::OpenFiles);
    m_start = new StartPage{*m_commands->actions().constFirst(), *m_view};
    m_recent = new RecentFiles{[this](const QByteArrayList& paths) { AddFiles(paths); },
                               [this](const QString& message) { Warn(message); }, this};
    m_commands->addAction(file.addMenu(m_recent));
    AddCommand(file, WindowText("&Remove from list"), Qt::Key_Delete, &MainWindow::RemoveFiles);
    AddCommand(file, WindowText("Move &up"), Qt::ALT | Qt::Key_Up, &MainWindow::MoveFilesUp);
    AddCommand(file, WindowText("Move &down"), Qt::ALT | Qt::Key_Down, &MainWindow::MoveFilesDown);
    AddCommand(file, WindowText("Read &again"), Qt::Key_F5, &MainWindow::ReadFiles);
    const auto& plotCommands = *new PlotCommands{*m_view};
    file.addActions(plotCommands.ForFiles());
    file.addSeparator();
    file.addAction(WindowText("&Quit"), Qt::CTRL | Qt::Key_Q, this, &QWidget::close);
    menuBar()->addMenu(WindowText("&View"))->addActions(plotCommands.ForView());
    QMenu& styles = *menuBar()->addMenu(WindowText("&Styles"));
    AddCommand(styles, WindowText("&Curve styles..."), Qt::CTRL | Qt::Key_E, &MainWindow::EditStyles);
    AddCommand(styles, WindowText("C&heck styles..."), Qt::CTRL | Qt::Key_K, &MainWindow::CheckStyles);
    AddCommand(styles, WindowText("&Reload styles"), Qt::CTRL | Qt::Key_R, &MainWindow::ReloadStyles);
    AddCommand(styles, WindowText("Switch &user..."), Qt::CTRL | Qt::Key_U, &MainWindow::SwitchUser);
    AddHelpMenu(*this);
}

void MainWindow::AddCommand(QMenu& menu, const QString& text, const QKeySequence& keys,
                            void (MainWindow::*command)())
{
    m_commands->addAction(menu.addAction(text, keys, this, command));
}

void MainWindow::AddFiles(const QByteArrayList& paths)
{
    m_files->Add(paths);
    m_recent->Add(paths);
    ReadFiles();
    const std::string remark = FileLimitRemark(m_files->Paths().size());
    if (!paths.empty() && !remark.empty())
        Warn(QString::fromStdString(remark));
}

void MainWindow::SetStartErrors(std::vector<std::string> errors)
{
    m_startErrors = std::move(errors);
    ReadFiles();
}

void MainWindow::OpenFiles()
{
    const QStringList names =
        QFileDialog::getOpenFileNames(this, WindowText("Open measured files"), {},
                                      WindowText("Measured data (*.csv *.tsv *.txt *.dat);;All files (*)"));
    QByteArrayList paths;
    for (const QString& name : names)
        paths.append(QFile::encodeName(name));
    if (!paths.empty())
        AddFiles(paths);
}

void MainWindow::RemoveFiles()
{
    if (m_files->RemoveSelected())
        ReadFiles();
    else
        statusBar()->showMessage(WindowText("Select files in the list first."), MessageTime);
}

void MainWindow::MoveFilesUp()
{
    if (m_files->MoveSelected(FileList::Direction::Up))
        ReadFiles();
}

void MainWindow::MoveFilesDown()
{
    if (m_files->MoveSelected(FileList::Direction::Down))
        ReadFiles();
}

void MainWindow::ReadFiles()
{
    const std::vector<std::string> paths = m_files->Paths();
    std::vector<const char*> pointers(paths.size());
    std::ranges::transform(paths, pointers.begin(), [](const std::string& path) { return path.c_str(); });
    m_remarks->clear();
    const auto report = [this](const std::string& message) {
        m_remarks->appendPlainText(QString::fromStdString(message));
    };
    std::ranges::for_each(m_startErrors, report);
    if (const std::string remark = FileLimitRemark(paths.size()); !remark.empty())
        report(remark);
    Plot plot; // the old one is painted meanwhile
    ReadingProgress progress{*this};
    CallLibrary([&] {
        try {
            plot = ReadPlot(pointers, report, std::bind_front(&ReadingProgress::Show, &progress));
        } catch (const std::exception& error) { // the memory is full
            report(error.what());
        }
    });
    m_plot = std::move(plot);
    m_remarks->setVisible(!m_remarks->document()->isEmpty());
    m_start->setVisible(paths.empty());
    m_view->SetHint(paths.empty() ? QString{} : WindowText("There is no curve to plot."));
    m_view->ShowNewPlot();
    m_check->Renew();
    ShowCounts();
}

void MainWindow::EditStyles()
{
    int result = 0;
    CallLibrary([&] { result = m_calls.edit(winId()); });
    if (result == STYLEATLAS_EDIT_OK)
        ShowNewStyles(WindowText("The new styles are in force."));
    else if (result != STYLEATLAS_EDIT_CANCELLED)
        Warn(WindowText("The editor of the styles cannot be shown."));
}

void MainWindow::CheckStyles()
{
    m_check->BringUp();
}

void MainWindow::ReloadStyles()
{
    CallLibrary(m_calls.reload);
    ShowNewStyles(WindowText("The styles have been loaded again."));
}

void MainWindow::SwitchUser()
{
    try {
        if (m_settings.root.isEmpty())
            m_settings = FirstSettings(m_hostName);
    } catch (const std::runtime_error& error) {
        Warn(error.what());
        return;
    }
    if (!AskForSettings(this, m_settings))
        return;
    CallLibrary([this] {
        m_calls.changeUser(m_settings.root.toStdU16String().c_str(),
                           m_settings.subKey.toStdU16String().c_str());
    });
    ShowNewStyles(WindowText("The styles are those of the user %1.", m_settings.root));
}

// While the call shows a window of its own, this window still gets events, and none of them may lead to
// another call. Painting makes no call: the plot holds its styles.
void MainWindow::CallLibrary(const std::function<void()>& call)
{
    m_commands->setEnabled(false);
    setAcceptDrops(false);
    m_files->setAcceptDrops(false);
    statusBar()->clearMessage();
    call();
    setAcceptDrops(true);
    m_files->setAcceptDrops(true);
    m_commands->setEnabled(true);
}

void MainWindow::ShowNewStyles(const QString& message)
{
    RenewStyles(m_plot);
    m_view->ShowNewStyles();
    m_check->Renew();
    statusBar()->showMessage(message, MessageTime);
}

void MainWindow::ShowCounts()
{
    const std::string counts = Text("files: %1, curves: %2", {std::to_string(m_files->Paths().size()),
                                                              std::to_string(CurveCount(m_plot))});
    m_counts->setText(m_hostName + (m_hostName.isEmpty() ? "" : " - ") + QString::fromStdString(counts));
}

void MainWindow::Warn(const QString& text)
{
    statusBar()->showMessage(text, MessageTime);
    ShowMessage(*this, QMessageBox::Warning, text);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    KeepWindow(*this);
    QMainWindow::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!LocalFiles(*event->mimeData()).empty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    AddFiles(LocalFiles(*event->mimeData()));
    event->acceptProposedAction();
}

} // namespace atlashost
