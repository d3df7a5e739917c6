#include "IntegerMath.h"
#include "Rasteriser.h"

#include <algorithm>
#include <cstdlib>

namespace gdi
{

namespace
{

struct Span {
    std::int64_t Left;
    std::int64_t Right;
};

// In doubled coordinates around the centre, where the half axes are the sides of the box.
class EllipseRows
{
public:
    explicit EllipseRows(const Box& box)
        : m_box(box), m_width(box.Right - box.Left), m_height(box.Bottom - box.Top)
    {
    }

    // Empty outside the box.
    Span At(std::int64_t row) const
    {
        if (row < m_box.Top || row >= m_box.Bottom)
            return {m_box.Right, m_box.Left};
        const std::int64_t y = 2 * (row - m_box.Top) + 1 - m_height;
        const std::int64_t half = HalfWidth(m_height * m_height - y * y);
        const std::int64_t margin = CeilDiv(m_width - 1 - half, 2);
        return {m_box.Left + margin, m_box.Right - margin};
    }

private:
    // Of a row by the difference of the squares of height and row.
    std::int64_t HalfWidth(std::int64_t rest) const
    {
        constexpr std::int64_t maxSide = 1 << 15; // whose products fit
        if (m_width == m_height)
            return FloorSqrt64(rest);
        if (m_width < maxSide && m_height < maxSide)
            return FloorSqrt64(m_width * m_width * rest, m_height * m_height);
        const auto width = static_cast<Wide>(m_width);
        const auto height = static_cast<Wide>(m_height);
        return FloorSqrt(width * width * static_cast<Wide>(rest), height * height);
    }

    Box m_box;
    std::int64_t m_width;
    std::int64_t m_height;
};

} // namespace

void DrawEllipse(const Canvas& canvas, const Box& box, std::optional<Pixel> outline,
                 std::optional<Pixel> interior, std::int64_t thickness)
{
    const Box visible = box.Intersect(canvas.Clip());
    if (visible.IsEmpty())
        return;
    const EllipseRows rows(box);
    const Box inner{box.Left + thickness, box.Top + thickness, box.Right - thickness, box.Bottom - thickness};
    const EllipseRows within(inner.IsEmpty() ? Box{} : inner);
    Span above = rows.At(visible.Top - 1);
    Span here = rows.At(visible.Top);
    for (std::int64_t row = visible.Top; row < visible.Bottom; ++row) {
        const Span below = rows.At(row + 1);
        Span inside = thickness > 1 ? within.At(row)
                                    : Span{std::max({here.Left + 1, above.Left, below.Left}),
                                           std::min({here.Right - 1, above.Right, below.Right})};
        if (inside.Left >= inside.Right || !outline)
            inside = outline ? Span{here.Right, here.Right} : here;
        if (outline) {
            canvas.FillSpan(row, here.Left, inside.Left, *outline);
            canvas.FillSpan(row, inside.Right, here.Right, *outline);
        }
        if (interior)
            canvas.FillSpan(row, inside.Left, inside.Right, *interior);
        above = here;
        here = below;
    }
}

} // namespace gdi
