#include "ScreenPixels.h"

#include <DeviceContext.h>
#include <QPainter>
#include <QWidget>
#include <QtConvert.h>
#include <cmath>

namespace
{

QSize PixelSize(const gdi::PixelGrid& grid, QSize units)
{
    return {static_cast<int>(grid.X(units.width())), static_cast<int>(grid.Y(units.height()))};
}

gdi::PixelGrid GridOf(const QWidget& widget)
{
    const double scale = widget.devicePixelRatioF();
    const QPoint place = widget.mapTo(widget.window(), QPoint(0, 0));
    return {scale, place.x() * scale, place.y() * scale};
}

gdi::PixelGrid GridOf(const QPainter& painter, QPoint origin)
{
    const QTransform& toDevice = painter.deviceTransform();
    const QPointF place = toDevice.map(QPointF(origin));
    return {toDevice.m11(), place.x(), place.y()};
}

} // namespace

ScreenPixels::ScreenPixels(const gdi::PixelGrid& grid, QSize units)
    : m_grid(grid), m_image(PixelSize(grid, units), QImage::Format_RGB32)
{
}

ScreenPixels::ScreenPixels(const QWidget& widget) : ScreenPixels(GridOf(widget), widget.size()) {}

ScreenPixels::ScreenPixels(const QPainter& painter, const QRect& place)
    : ScreenPixels(GridOf(painter, place.topLeft()), place.size())
{
}

bool ScreenPixels::Fits(const QWidget& widget) const
{
    return m_grid == GridOf(widget) && m_image.size() == PixelSize(m_grid, widget.size());
}

void ScreenPixels::Fill(COLORREF color)
{
    m_image.fill(gdi::ToQColor(color));
}

HDC ScreenPixels::CreateContext(const RECT& clip)
{
    return gdi::CreateSurfaceDC(gdi::ToSurface(m_image), clip, m_grid);
}

void ScreenPixels::Show(QPainter& painter, QPoint origin) const
{
    const QTransform toDevice = painter.deviceTransform();
    const QPointF place = toDevice.map(QPointF(origin));
    painter.save();
    painter.setWorldTransform(toDevice.inverted(), true);
    painter.drawImage(QPointF(std::round(place.x()), std::round(place.y())), m_image);
    painter.restore();
}
