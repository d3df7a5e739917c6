#include "PlotCommands.h"

#include "ExportDialog.h"
#include "MessageBox.h"
#include "PictureFile.h"
#include "PlotPainter.h"
#include "PlotView.h"
#include "WindowText.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusTipEvent>

#include <stdexcept>

namespace atlashost
{
namespace
{

void DrawView(QPainter& painter, QSize size, const PlotView& view)
{
    DrawPlot(painter, size, view.ShownPlot(), view.Scope());
}

} // namespace

PlotCommands::PlotCommands(PlotView& view) : QObject{&view}, m_view{view}
{
    m_forFiles = {MakeAction(WindowText("&Export picture..."), Qt::CTRL | Qt::Key_S, &PlotCommands::Export),
                  MakeAction(WindowText("&Copy picture"), QKeySequence::Copy, &PlotCommands::Copy),
                  MakeAction(WindowText("&Print..."), QKeySequence::Print, &PlotCommands::Print)};
    const auto forView = [&](const QString& text, const QKeySequence& keys, void (PlotView::*command)()) {
        auto* const action = new QAction{text, this};
        action->setShortcut(keys);
        connect(action, &QAction::triggered, &view, command);
        m_forView.append(action);
    };
    forView(WindowText("Zoom &in"), QKeySequence::ZoomIn, &PlotView::ZoomIn);
    forView(WindowText("Zoom &out"), QKeySequence::ZoomOut, &PlotView::ZoomOut);
    forView(WindowText("&Show everything"), Qt::CTRL | Qt::Key_0, &PlotView::ShowEverything);
    view.addActions(m_forView + m_forFiles);
}

QAction* PlotCommands::MakeAction(const QString& text, const QKeySequence& keys,
                                  void (PlotCommands::*command)())
{
    auto* const action = new QAction{text, this};
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, [this, command] {
        if (m_view.ShownPlot().panels.empty())
            Tell(WindowText("There is no curve to plot."));
        else
            (this->*command)();
    });
    return action;
}

void PlotCommands::Export()
{
    ExportDialog dialog{m_view.size(), &m_view};
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QByteArray path = QFile::encodeName(dialog.Path());
    try {
        WritePicture(path.constData(), FormatOf(path.toStdString()).value_or(PictureFormat::Png),
                     dialog.Size(),
                     [this](QPainter& painter, QSize size) { DrawView(painter, size, m_view); });
        Tell(WindowText("The picture is in %1", dialog.Path()));
    } catch (const std::runtime_error& error) {
        Warn(error.what());
    }
}

void PlotCommands::Copy()
{
    const double scale = m_view.devicePixelRatio();
    try {
        QGuiApplication::clipboard()->setImage(
            DrawImage({m_view.size() * scale, ScreenResolution * scale},
                      [this](QPainter& painter, QSize size) { DrawView(painter, size, m_view); }));
        Tell(WindowText("The picture is on the clipboard."));
    } catch (const std::runtime_error& error) {
        Warn(error.what());
    }
}

void PlotCommands::Print()
{
    QPrinter printer{QPrinter::HighResolution};
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog{&printer, &m_view};
    if (dialog.exec() != QDialog::Accepted)
        return;
    const double scale = printer.resolution() / ScreenResolution;
    QPainter painter{&printer};
    if (painter.isActive()) {
        painter.scale(scale, scale);
        DrawView(painter, (printer.pageRect(QPrinter::DevicePixel).size() / scale).toSize(), m_view);
    }
    if (painter.isActive() && painter.end())
        Tell(WindowText("The picture is being printed."));
    else
        Warn(WindowText("The picture cannot be printed."));
}

void PlotCommands::Tell(const QString& text)
{
    QStatusTipEvent tip{text};
    QCoreApplication::sendEvent(&m_view, &tip);
}

// The box takes the pointer from the plot, which clears the status line.
void PlotCommands::Warn(const QString& text)
{
    ShowMessage(*m_view.window(), QMessageBox::Warning, text);
    Tell(text);
}

} // namespace atlashost
