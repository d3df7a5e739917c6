// Lines of more than one pixel, with round ends.
#include "IntegerMath.h"
#include "Rasteriser.h"

#include <algorithm>
#include <cstdlib>

namespace gdi
{

namespace
{

constexpr std::int64_t farAway = std::int64_t{1} << 40; // beyond all coordinates

// A closed interval.
struct Range {
    std::int64_t Low = -farAway;
    std::int64_t High = farAway;

    bool IsEmpty() const { return Low > High; }

    // Keeps those x with factor * x <= limit.
    void Limit(std::int64_t factor, std::int64_t limit)
    {
        if (factor > 0)
            High = std::min(High, FloorDiv(limit, factor));
        else if (factor < 0)
            Low = std::max(Low, CeilDiv(-limit, -factor));
        else if (limit < 0)
            *this = {1, 0};
    }
};

// In doubled coordinates, where pixel centres and corners are integers: the centre of the pixel (x, y) is
// (2x, 2y), and half the width is the width.
class Capsule
{
public:
    Capsule(Point first, Point last, std::int64_t width)
        : m_first(Doubled(first, width)), m_last(Doubled(last, width)), m_width(width),
          m_across(last.X - first.X), m_down(last.Y - first.Y)
    {
        const auto across = static_cast<Wide>(std::abs(m_across));
        const auto down = static_cast<Wide>(std::abs(m_down));
        const Wide length = across * across + down * down;
        m_reach = FloorSqrt(length * static_cast<Wide>(width) * static_cast<Wide>(width));
        m_squaredLength = 2 * static_cast<std::int64_t>(length);
    }

    std::int64_t TopRow() const { return CeilDiv(std::min(m_first.Y, m_last.Y) - m_width, 2); }
    std::int64_t BottomRow() const { return FloorDiv(std::max(m_first.Y, m_last.Y) + m_width, 2); }

    // The shape is convex, so the pixels of a row are one range.
    Range PixelsOf(std::int64_t row) const
    {
        if (m_down == 0) { // from end to end
            const Range left = PixelsOfEnd(m_across < 0 ? m_last : m_first, row);
            const std::int64_t length = std::abs(m_across);
            return left.IsEmpty() ? left : Range{left.Low, left.High + length};
        }
        Range all{farAway, -farAway};
        for (const Range& part : {PixelsOfEnd(m_first, row), PixelsOfEnd(m_last, row), PixelsBetween(row)}) {
            if (part.IsEmpty())
                continue;
            all.Low = std::min(all.Low, part.Low);
            all.High = std::max(all.High, part.High);
        }
        return all;
    }

private:
    static Point Doubled(Point point, std::int64_t width)
    {
        const std::int64_t shift = width % 2 == 0 ? 1 : 0;
        return {2 * point.X - shift, 2 * point.Y - shift};
    }

    Range PixelsOfEnd(Point end, std::int64_t row) const
    {
        const std::int64_t y = 2 * row - end.Y;
        if (std::abs(y) > m_width)
            return {1, 0};
        const std::int64_t half = FloorSqrt64(m_width * m_width - y * y);
        return {CeilDiv(end.X - half, 2), FloorDiv(end.X + half, 2)};
    }

    // Between the perpendiculars through both ends of the segment, and within the width of it.
    Range PixelsBetween(std::int64_t row) const
    {
        const std::int64_t y = 2 * row - m_first.Y;
        const std::int64_t cross = m_across * y + m_down * m_first.X;
        const std::int64_t dot = m_down * y - m_across * m_first.X;
        Range range;
        range.Limit(-2 * m_down, m_reach - cross);
        range.Limit(2 * m_down, m_reach + cross);
        range.Limit(-2 * m_across, dot);
        range.Limit(2 * m_across, m_squaredLength - dot);
        return m_squaredLength == 0 ? Range{1, 0} : range;
    }

    Point m_first;
    Point m_last;
    std::int64_t m_width;
    std::int64_t m_across;
    std::int64_t m_down;
    std::int64_t m_reach;         // width times length of the segment
    std::int64_t m_squaredLength; // of the segment, times 2
};

} // namespace

void DrawWideLine(const Canvas& canvas, Point first, Point last, std::int64_t width, Pixel ink)
{
    const Capsule capsule(first, last, width);
    const std::int64_t bottom = std::min(capsule.BottomRow(), canvas.Clip().Bottom - 1);
    for (std::int64_t row = std::max(capsule.TopRow(), canvas.Clip().Top); row <= bottom; ++row) {
        const Range pixels = capsule.PixelsOf(row);
        canvas.FillSpan(row, pixels.Low, pixels.High + 1, ink);
    }
}

} // namespace gdi
