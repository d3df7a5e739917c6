#include "SymbolPicture.h"

#include "styleatlas.h"

#include <QRgb>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>

namespace atlashost
{
namespace
{

constexpr int LargestSize = 256;
constexpr QRgb Paper = qRgb(255, 255, 255); // inside empty squares and circles

class SymbolDrawing
{
public:
    explicit SymbolDrawing(const CurveStyle& style)
        : m_half{std::clamp<int>(style.symbolSize, 0, LargestSize) / 2},
          m_quarter{std::clamp<int>(style.symbolSize, 0, LargestSize) / 4}, m_fill{style.symbolFill},
          m_ink{ToQColor(style.symbolColor).rgb()}
    {
        if (m_half == 0)
            return;
        m_image = QImage(2 * m_half + 1, 2 * m_half + 1, QImage::Format_ARGB32_Premultiplied);
        m_image.fill(Qt::transparent);
        Draw(style.symbolShape);
    }

    SymbolPicture Picture() const { return {m_image, {m_half, m_half}}; }

private:
    void Draw(int shape)
    {
        const bool hasDot = m_fill == STYLEATLAS_FILL_EMPTY_WITH_DOT;
        switch (shape) {
        case STYLEATLAS_SHAPE_CROSS:
            return Cross();
        case STYLEATLAS_SHAPE_TRIANGLE:
            Outline({{-m_half, m_half}, {m_half, m_half}, {0, -m_half}});
            break;
        case STYLEATLAS_SHAPE_TRIANGLE_2:
            Outline({{-m_half, -m_half}, {0, m_half}, {m_half, -m_half}});
            break;
        case STYLEATLAS_SHAPE_SQUARE:
            Square();
            break;
        case STYLEATLAS_SHAPE_PLUS:
            Plus();
            break;
        case STYLEATLAS_SHAPE_ASTERISK:
            Plus();
            Cross();
            break;
        case STYLEATLAS_SHAPE_DIAMOND:
            Outline({{0, -m_half}, {-m_half, -m_quarter}, {0, m_half}, {m_half, -m_quarter}});
            break;
        case STYLEATLAS_SHAPE_CIRCLE:
            Disc(m_half, m_fill == STYLEATLAS_FILL_EMPTY || hasDot ? Paper : m_ink);
            break;
        case STYLEATLAS_SHAPE_POINT:
            return Disc(m_quarter, m_ink);
        default:
            m_image = {};
            return;
        }
        if (hasDot)
            Disc(m_quarter, m_ink);
    }

    void Set(int x, int y, QRgb color) { m_image.setPixel(m_half + x, m_half + y, color); }

    // The end is not drawn. Walked from above, so that a line is the same whichever end it is drawn from.
    void Line(QPoint from, QPoint to)
    {
        const bool isUpwards = to.y() < from.y();
        const QPoint start = isUpwards ? to : from;
        const QPoint way = isUpwards ? from - to : to - from;
        const int length = std::max(std::abs(way.x()), way.y());
        const int sideways = way.x() < 0 ? -1 : 1;
        // The shorter side moves by one after each half step; half rounds down.
        const auto share = [length](int side, int step) {
            return side == length ? step : (2 * step * side + length - 1) / (2 * length);
        };
        const int skipped = isUpwards ? 1 : 0;
        for (int step = skipped; step < length + skipped; ++step)
            Set(start.x() + sideways * share(std::abs(way.x()), step), start.y() + share(way.y(), step),
                m_ink);
    }

    void Cross()
    {
        Line({-m_half, -m_half}, {m_half, m_half});
        Line({m_half, -m_half}, {-m_half, m_half});
    }

    void Plus()
    {
        Line({-m_half, 0}, {m_half, 0});
        Line({0, -m_half}, {0, m_half});
    }

    void Square()
    {
        for (int y = -m_half; y < m_half; ++y) {
            for (int x = -m_half; x < m_half; ++x) {
                const bool isEdge = std::max(std::abs(2 * x + 1), std::abs(2 * y + 1)) == 2 * m_half - 1;
                Set(x, y, isEdge || m_fill == STYLEATLAS_FILL_FILLED ? m_ink : Paper);
            }
        }
    }

    void Disc(int radius, QRgb inside)
    {
        const auto isOfDisc = [radius](int x, int y) {
            return (2 * x + 1) * (2 * x + 1) + (2 * y + 1) * (2 * y + 1) <= 4 * radius * radius;
        };
        for (int y = -radius; y < radius; ++y) {
            for (int x = -radius; x < radius; ++x) {
                const bool isInside =
                    isOfDisc(x - 1, y) && isOfDisc(x + 1, y) && isOfDisc(x, y - 1) && isOfDisc(x, y + 1);
                if (isOfDisc(x, y))
                    Set(x, y, isInside ? inside : m_ink);
            }
        }
    }

    // A convex figure, so that its rows can be filled from edge to edge.
    void Outline(std::initializer_list<QPoint> corners)
    {
        for (const QPoint* corner = corners.begin(); corner != corners.end(); ++corner)
            Line(*corner, corner + 1 != corners.end() ? corner[1] : *corners.begin());
        if (m_fill != STYLEATLAS_FILL_FILLED)
            return;
        for (int y = -m_half; y <= m_half; ++y) {
            const auto isInk = [this, y](int x) { return m_image.pixel(m_half + x, m_half + y) == m_ink; };
            int left = -m_half;
            int right = m_half;
            while (left < right && !isInk(left))
                ++left;
            while (left < right && !isInk(right))
                --right;
            for (int x = left; x < right; ++x)
                Set(x, y, m_ink);
        }
    }

    int m_half;
    int m_quarter;
    int m_fill;
    QRgb m_ink;
    QImage m_image;
};

} // namespace

SymbolPicture MakeSymbolPicture(const CurveStyle& style)
{
    return SymbolDrawing{style}.Picture();
}

QColor ToQColor(std::uint32_t color)
{
    return {static_cast<int>(STYLEATLAS_RED(color)), static_cast<int>(STYLEATLAS_GREEN(color)),
            static_cast<int>(STYLEATLAS_BLUE(color))};
}

} // namespace atlashost
