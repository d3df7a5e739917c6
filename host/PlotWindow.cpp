#include "PlotWindow.h"

#include "PlotLayout.h"
#include "PlotPainter.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

namespace atlashost
{
namespace
{

constexpr QSize Smallest{320, 200};

} // namespace

PlotWindow::PlotWindow(const Plot& plot) : m_plot{plot}
{
    setWindowTitle("Curves");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(Smallest);
    // Some of the screen is the desktop's own.
    resize(GoodSize(plot.panels.size()).boundedTo(screen()->availableSize() * 9 / 10).expandedTo(Smallest));
}

void PlotWindow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter{this};
    DrawPlot(painter, size(), m_plot);
}

void PlotWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace atlashost
