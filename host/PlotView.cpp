#include "PlotView.h"

#include "PlotPainter.h"

#include <QPainter>
#include <QScreen>

#include <utility>

namespace atlashost
{
namespace
{

constexpr QSize MinSize{320, 200};

} // namespace

PlotView::PlotView(const Plot& plot, QWidget* parent) : QWidget{parent}, m_plot{plot}
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(MinSize);
}

void PlotView::ShowNewPlot()
{
    m_scope = {};
    update();
}

void PlotView::ShowNewStyles()
{
    update();
}

void PlotView::Mark(std::vector<CurvePlace> curves)
{
    m_scope.marked = std::move(curves);
    update();
}

void PlotView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter{this};
    if (!m_plot.panels.empty()) {
        DrawPlot(painter, size(), m_plot, m_scope);
        return;
    }
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, m_hint);
}

QSize FittingSize(const QWidget& widget, QSize size)
{
    return size.boundedTo(widget.screen()->availableSize() * 9 / 10);
}

} // namespace atlashost
