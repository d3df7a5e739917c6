#include "MainWindow.h"

#include "FileList.h"
#include "PlotCommands.h"
#include "PlotView.h"
#include "WindowText.h"

#include <QActionGroup>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScopeGuard>
#include <QSplitter>
#include <QStatusBar>
#include <QUrl>

#include <algorithm>
#include <exception>
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
    setAcceptDrops(true);
    MakeParts();
    MakeMenus();
    ReadFiles();
    resize(FittingSize(*this, GoodWindow));
}

void MainWindow::MakeParts()
{
    m_files = new FileList;
    m_remarks = new QPlainTextEdit;
    m_remarks->setReadOnly(true);
    m_remarks->setAcceptDrops(false);
    m_remarks->setMaximumBlockCount(MaxRemarks);
    m_view = new PlotView{m_plot};
    auto* const side = new QSplitter{Qt::Vertical};
    side->addWidget(m_files);
    side->addWidget(m_remarks);
    side->setSizes({GoodWindow.height() - RemarksHeight, RemarksHeight});
    auto* const all = new QSplitter;
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
    m_commands->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
    QMenu& file = *menuBar()->addMenu(WindowText("&File"));
    AddCommand(file, WindowText("&Open..."), Qt::CTRL | Qt::Key_O, &MainWindow::OpenFiles);
    AddCommand(file, WindowText("&Remove from list"), Qt::Key_Delete, &MainWindow::RemoveFiles);
    AddCommand(file, WindowText("Read &again"), Qt::Key_F5, &MainWindow::ReadFiles);
    const auto& plotCommands = *new PlotCommands{*m_view};
    file.addActions(plotCommands.ForFiles());
    file.addSeparator();
    file.addAction(WindowText("&Quit"), Qt::CTRL | Qt::Key_Q, this, &QWidget::close);
    menuBar()->addMenu(WindowText("&View"))->addActions(plotCommands.ForView());
    QMenu& styles = *menuBar()->addMenu(WindowText("&Styles"));
    AddCommand(styles, WindowText("&Curve styles..."), Qt::CTRL | Qt::Key_E, &MainWindow::EditStyles);
    AddCommand(styles, WindowText("&Reload styles"), Qt::CTRL | Qt::Key_R, &MainWindow::ReloadStyles);
    AddCommand(styles, WindowText("Switch &user..."), Qt::CTRL | Qt::Key_U, &MainWindow::SwitchUser);
}

void MainWindow::AddCommand(QMenu& menu, const QString& text, const QKeySequence& keys,
                            void (MainWindow::*command)())
{
    m_commands->addAction(menu.addAction(text, keys, this, command));
}

void MainWindow::AddFiles(const QByteArrayList& paths)
{
    m_files->Add(paths);
    ReadFiles();
}

void MainWindow::OpenFiles()
{
    const QStringList names = QFileDialog::getOpenFileNames(
        this, WindowText("Open measured files"), {}, WindowText("Measured data (*.csv);;All files (*)"));
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

void MainWindow::ReadFiles()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto restore = qScopeGuard(QGuiApplication::restoreOverrideCursor);
    const std::vector<std::string> paths = m_files->Paths();
    std::vector<const char*> pointers(paths.size());
    std::ranges::transform(paths, pointers.begin(), [](const std::string& path) { return path.c_str(); });
    m_remarks->clear();
    const auto report = [this](const std::string& message) {
        m_remarks->appendPlainText(QString::fromStdString(message));
    };
    try {
        m_plot = ReadPlot(pointers, report);
    } catch (const std::exception& error) { // too many readings
        m_plot = {};
        report(error.what());
    }
    m_remarks->setVisible(!m_remarks->document()->isEmpty());
    m_view->SetHint(paths.empty() ? WindowText("Open measured files (Ctrl+O), or drop them here.")
                                  : WindowText("There is no curve to plot."));
    m_view->ShowNewPlot();
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

// While a call of the style atlas shows a window of its own, this window still gets events, and none of them
// may lead to another call. Painting makes no call: the plot holds its styles.
void MainWindow::CallLibrary(const std::function<void()>& call)
{
    m_commands->setEnabled(false);
    setAcceptDrops(false);
    statusBar()->clearMessage();
    call();
    setAcceptDrops(true);
    m_commands->setEnabled(true);
}

void MainWindow::ShowNewStyles(const QString& message)
{
    RenewStyles(m_plot);
    m_view->ShowNewStyles();
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
    auto* const box = new QMessageBox{QMessageBox::Warning, windowTitle(), text, QMessageBox::Ok, this};
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
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
