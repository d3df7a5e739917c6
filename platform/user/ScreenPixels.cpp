#include "ScreenPixels.h"

#include <DeviceContext.h>
#include <QPainter>
#include <QWidget>
#include <QtConvert.h>
#include <cmath>

namespace
{

QRect PixelsOf(const gdi::PixelGrid& grid, const QRect& units)
{
    return gdi::ToQRect(grid.Pixels(gdi::ToBox(units)));
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

ScreenPixels::ScreenPixels(const gdi::PixelGrid& grid, const QRect& part)
    : m_grid(grid), m_first(PixelsOf(grid, part).topLeft()),
      m_image(PixelsOf(grid, part).size(), QImage::Format_RGB32)
{
}

ScreenPixels::ScreenPixels(const QWidget& widget, const QRect& part) : ScreenPixels(GridOf(widget), part) {}

ScreenPixels::ScreenPixels(const QPainter& painter, const QRect& place)
    : ScreenPixels(GridOf(painter, place.topLeft()), QRect(QPoint(0, 0), place.size()))
{
}

bool ScreenPixels::Fits(const QWidget& widget, const QRect& part) const
{
    return m_grid == GridOf(widget) && QRect(m_first, m_image.size()) == PixelsOf(m_grid, part);
}

bool ScreenPixels::MoveTo(const QWidget& widget, const QRect& part)
{
    const QRect pixels = PixelsOf(m_grid, part);
    if (m_grid != GridOf(widget) || m_image.size() != pixels.size())
        return false;
    m_first = pixels.topLeft();
    return true;
}

void ScreenPixels::Fill(COLORREF color)
{
    m_image.fill(gdi::ToQColor(color));
}

HDC ScreenPixels::CreateContext(const RECT& clip)
{
    gdi::Surface surface = gdi::ToSurface(m_image);
    surface.Pixels -= m_first.y() * surface.Stride + m_first.x();
    surface.Width += m_first.x();
    surface.Height += m_first.y();
    return gdi::CreateSurfaceDC(surface, clip, m_grid);
}

void ScreenPixels::Show(QPainter& painter, QPoint origin) const
{
    const QTransform toDevice = painter.deviceTransform();
    const QPointF place = toDevice.map(QPointF(origin));
    painter.save();
    painter.setWorldTransform(toDevice.inverted(), true);
    painter.drawImage(QPointF(std::round(place.x()), std::round(place.y())) + m_first, m_image);
    painter.restore();
}
