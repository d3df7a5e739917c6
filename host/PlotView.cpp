#include "PlotView.h"

#include "PlotPainter.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStatusTipEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace atlashost
{
namespace
{

constexpr QSize MinViewSize{320, 200};
constexpr double ZoomStep = 0.8; // of the wheel or a key
constexpr int AngleOfWheelStep = 120;
constexpr int PartsOfPanStep = 10; // of the frame, by an arrow key
constexpr int MinBand = 5;         // pixels; a rectangle less wide or high zooms one axis, or none
constexpr double RingRadius = 7.5;

ZoomedAxes AxesAt(const PanelLayout& layout, QPoint point, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & Qt::ControlModifier || point.y() > layout.frame.bottom())
        return ZoomedAxes::Times;
    if (modifiers & Qt::ShiftModifier || point.x() < layout.frame.left())
        return ZoomedAxes::Values;
    return ZoomedAxes::Both;
}

} // namespace

PlotView::PlotView(const Plot& plot, QWidget* parent) : QWidget{parent}, m_plot{plot}
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(MinViewSize);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

void PlotView::ShowNewPlot()
{
    m_scope = {};
    m_drag.reset();
    unsetCursor();
    m_panel = 0;
    Redraw();
}

void PlotView::Mark(std::vector<CurvePlace> curves)
{
    m_scope.marked = std::move(curves);
    Redraw();
}

void PlotView::ShowEverything()
{
    m_scope.zooms.clear();
    Redraw();
}

void PlotView::ZoomIn()
{
    ZoomCentre(ZoomStep);
}

void PlotView::ZoomOut()
{
    ZoomCentre(1 / ZoomStep);
}

void PlotView::ZoomCentre(double factor)
{
    if (m_panel >= m_layout.panels.size())
        return;
    const PanelLayout& layout = m_layout.panels[m_panel];
    m_zoom.Scale(layout, m_panel, layout.frame.center(), factor, ZoomedAxes::Both);
    Redraw();
}

// The direction is -1, 0 or 1 for each axis.
void PlotView::PanBy(QPoint direction)
{
    if (m_panel >= m_layout.panels.size())
        return;
    const PanelLayout& layout = m_layout.panels[m_panel];
    m_zoom.Pan(layout, m_panel,
               QPoint{direction.x() * layout.frame.width(), direction.y() * layout.frame.height()} /
                   PartsOfPanStep);
    Redraw();
}

// The next event may come before the next painting, and needs the new axes.
void PlotView::Redraw()
{
    m_picture = {};
    m_found.reset();
    m_layout = {};
    if (!m_plot.panels.empty())
        m_layout = LayOut(m_plot, m_scope, size(), QFontMetrics{PlotFont()});
    update();
}

// The picture stays while the pointer moves over it.
void PlotView::DrawPicture()
{
    m_picture = QImage{size() * devicePixelRatio(), QImage::Format_RGB32};
    m_picture.setDevicePixelRatio(devicePixelRatio());
    QPainter painter{&m_picture};
    m_layout = DrawPlot(painter, size(), m_plot, m_scope);
}

void PlotView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter{this};
    if (!m_plot.panels.empty()) {
        if (m_picture.isNull() || m_picture.devicePixelRatio() != devicePixelRatio())
            DrawPicture();
        painter.drawImage(0, 0, m_picture);
        DrawOverlay(painter);
        return;
    }
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, m_hint);
}

void PlotView::DrawOverlay(QPainter& painter) const
{
    if (m_drag && m_drag->kind == Drag::Kind::Band) {
        QColor color = palette().color(QPalette::Highlight);
        painter.setPen(color);
        color.setAlphaF(0.2F);
        painter.fillRect(Band(), color);
        painter.drawRect(Band().adjusted(0, 0, -1, -1));
    } else if (m_found) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen{Qt::white, 4});
        painter.drawEllipse(QPointF{m_found->point} + QPointF{0.5, 0.5}, RingRadius, RingRadius);
        painter.setPen(QPen{palette().color(QPalette::Highlight), 2});
        painter.drawEllipse(QPointF{m_found->point} + QPointF{0.5, 0.5}, RingRadius, RingRadius);
    }
}

// Of the whole frame's height or width where the drag has hardly any.
QRect PlotView::Band() const
{
    const QRect frame = m_drag->layout.frame;
    const QRect dragged = QRect{m_drag->start, m_drag->end}.normalized();
    QRect band = dragged.intersected(frame);
    if (dragged.width() < MinBand && dragged.height() < MinBand)
        return {};
    if (dragged.width() < MinBand) {
        band.setLeft(frame.left());
        band.setRight(frame.right());
    } else if (dragged.height() < MinBand) {
        band.setTop(frame.top());
        band.setBottom(frame.bottom());
    }
    return band;
}

void PlotView::wheelEvent(QWheelEvent* event)
{
    const QPoint point = event->position().toPoint();
    const std::optional<std::size_t> panel = PanelAt(m_layout, point);
    if (!panel || m_drag || event->angleDelta().y() == 0)
        return;
    const PanelLayout& layout = m_layout.panels[*panel];
    const double steps = event->angleDelta().y() / static_cast<double>(AngleOfWheelStep);
    m_zoom.Scale(layout, *panel, point, std::pow(ZoomStep, steps), AxesAt(layout, point, event->modifiers()));
    Redraw();
    PointAt(point);
}

void PlotView::mousePressEvent(QMouseEvent* event)
{
    const std::optional<std::size_t> panel = PanelAt(m_layout, event->pos());
    if (!panel || m_drag)
        return;
    const bool isPan = event->button() != Qt::LeftButton || event->modifiers() & Qt::ShiftModifier;
    if (isPan)
        setCursor(Qt::ClosedHandCursor);
    m_drag = {isPan ? Drag::Kind::Pan : Drag::Kind::Band, event->pos(), event->pos(), *panel,
              m_layout.panels[*panel]};
    m_found.reset();
}

void PlotView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_drag) {
        m_drag->end = event->pos();
        if (m_drag->kind == Drag::Kind::Pan) {
            m_zoom.Pan(m_drag->layout, m_drag->panel, m_drag->end - m_drag->start);
            Redraw();
        }
    }
    PointAt(event->pos());
    update();
}

void PlotView::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_drag)
        return;
    unsetCursor();
    const QRect band = Band();
    const Drag drag = *std::exchange(m_drag, std::nullopt);
    if (drag.kind == Drag::Kind::Band && !band.isEmpty())
        ShowBand(drag, band);
    PointAt(event->pos());
    update();
}

void PlotView::ShowBand(const Drag& drag, QRect band)
{
    const bool hasTimes = band.width() < drag.layout.frame.width();
    const bool hasValues = band.height() < drag.layout.frame.height();
    m_zoom.Show(drag.layout, drag.panel, band,
                hasTimes == hasValues ? ZoomedAxes::Both
                : hasTimes            ? ZoomedAxes::Times
                                      : ZoomedAxes::Values);
    Redraw();
}

void PlotView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        ShowEverything();
}

// The right button moves the curves, so that the menu comes by the keyboard, or where no panel is.
void PlotView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Mouse && PanelAt(m_layout, event->pos()))
        return;
    QMenu::exec(actions(), event->globalPos(), nullptr, this);
}

void PlotView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Plus:
        return ZoomIn();
    case Qt::Key_Minus:
        return ZoomOut();
    case Qt::Key_0:
    case Qt::Key_Home:
        return ShowEverything();
    case Qt::Key_Left:
        return PanBy({1, 0});
    case Qt::Key_Right:
        return PanBy({-1, 0});
    case Qt::Key_Up:
        return PanBy({0, 1});
    case Qt::Key_Down:
        return PanBy({0, -1});
    default:
        QWidget::keyPressEvent(event);
    }
}

// Marks the reading there, and says what it is.
void PlotView::PointAt(QPoint point)
{
    m_found.reset();
    const std::optional<std::size_t> panel = PanelAt(m_layout, point);
    if (panel)
        m_panel = *panel;
    if (!panel || m_drag || !m_layout.panels[*panel].frame.contains(point)) {
        Tell({});
        return;
    }
    const PanelLayout& layout = m_layout.panels[*panel];
    m_found = FindReading(m_plot.panels[*panel], layout, *panel, point);
    Tell(QString::fromStdString(m_found ? TextOf(m_plot, *m_found)
                                        : TextOf(m_plot.panels[*panel], layout, point)));
}

void PlotView::Tell(const QString& text)
{
    QStatusTipEvent tip{text};
    QCoreApplication::sendEvent(this, &tip);
}

void PlotView::leaveEvent(QEvent* /*event*/)
{
    m_found.reset();
    Tell({});
    update();
}

void PlotView::resizeEvent(QResizeEvent* /*event*/)
{
    Redraw();
}

QSize FittingSize(const QWidget& widget, QSize size)
{
    return size.boundedTo(widget.screen()->availableSize() * 9 / 10);
}

} // namespace atlashost
