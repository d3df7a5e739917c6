#include "SymbolPicture.h"

#include <Rasteriser.h>
#include <model/SymbolFigure.h>
#include <styleatlas-qt.h>

#include <QRgb>

#include <algorithm>

namespace styleatlas::qt
{
namespace
{

constexpr gdi::Pixel Paper = 0xFFFFFFFF;

// Draws figures around the middle of an image, as the rasteriser of the style atlas does.
class ImageCanvas
{
public:
    ImageCanvas(int half, gdi::Pixel ink)
        : m_half{half}, m_ink{ink}, m_image{2 * half + 1, 2 * half + 1, QImage::Format_ARGB32_Premultiplied}
    {
        m_image.fill(m_blank);
        const gdi::Surface surface{reinterpret_cast<gdi::Pixel*>(m_image.bits()), m_image.width(),
                                   m_image.height(), m_image.width()};
        m_canvas = {surface, {0, 0, m_image.width(), m_image.height()}};
    }

    void MoveTo(int x, int y) { m_position = At(x, y); }
    void LineTo(int x, int y)
    {
        const gdi::Point end = At(x, y);
        gdi::DrawThinLine(m_canvas, m_position, end, {.Ink = m_ink, .Gap = {}});
        m_position = end;
    }
    void CloseFigure() {}
    void Square(int half)
    {
        m_canvas.FillBox(Box(half), m_ink);
        const gdi::Box box = Box(half);
        m_canvas.FillBox({box.Left + 1, box.Top + 1, box.Right - 1, box.Bottom - 1}, Paper);
    }
    void Disc(int radius, k_SymbolInterior interior)
    {
        gdi::DrawEllipse(m_canvas, Box(radius), m_ink, interior == symbolPaper ? Paper : m_ink);
    }
    void Flood(int x, int y) { gdi::FloodFill(m_canvas, At(x, y), m_ink, m_ink); }

    // The image with what was not drawn on transparent.
    QImage Finish()
    {
        for (int y = 0; y < m_image.height(); ++y)
            std::replace(m_canvas.Row(y), m_canvas.Row(y) + m_image.width(), m_blank, gdi::Pixel{0});
        return m_image;
    }

private:
    gdi::Point At(int x, int y) const { return {m_half + x, m_half + y}; }
    gdi::Box Box(int half) const { return {m_half - half, m_half - half, m_half + half, m_half + half}; }

    int m_half;
    gdi::Pixel m_ink;
    gdi::Pixel m_blank = ~m_ink; // transparent, and no colour at which a flood would stop
    QImage m_image;
    gdi::Canvas m_canvas;
    gdi::Point m_position{0, 0};
};

} // namespace

SymbolPicture MakeSymbolPicture(const Style& style)
{
    const int size = SymbolSize(style);
    const int half = size / 2;
    if (size == 0)
        return {};
    ImageCanvas canvas{half, gdi::ToPixel(style.symbolColor.value)};
    k_SymbolFigure{canvas, static_cast<int>(style.symbolFill), size}.Draw(
        static_cast<int>(style.symbolShape));
    return {canvas.Finish(), {half, half}};
}

} // namespace styleatlas::qt
