// The pixels of an area, as many as its screen has there. Drawn on in the area's coordinates, from (0, 0) on.
#pragma once

#include <PixelGrid.h>
#include <QImage>
#include <windef.h>

class QPainter;
class QWidget;

class ScreenPixels
{
public:
    // Not yet painted. Of a part of a widget, at its place in its window.
    ScreenPixels(const QWidget& widget, const QRect& part);
    // Of a place in the painter's coordinates.
    ScreenPixels(const QPainter& painter, const QRect& place);

    bool IsNull() const { return m_image.isNull(); } // without memory
    bool Fits(const QWidget& widget, const QRect& part) const;

    // Makes them those of another part, in the widget's coordinates as before. False if there are more or
    // fewer of them, or at another place between the screen's.
    bool MoveTo(const QWidget& widget, const QRect& part);

    void Fill(COLORREF color);

    // A context on them, which they have to outlive. Null without memory. The clip rectangle is in the area's
    // coordinates.
    HDC CreateContext(const RECT& clip);

    // Shows them one to one where the painter's clip lets it. The area's origin is in the painter's
    // coordinates.
    void Show(QPainter& painter, QPoint origin) const;

private:
    ScreenPixels(const gdi::PixelGrid& grid, const QRect& part);

    gdi::PixelGrid m_grid;
    QPoint m_first; // place of the image's first pixel
    QImage m_image;
};
