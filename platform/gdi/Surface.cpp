#include "Surface.h"

#include <algorithm>
#include <cstring>

namespace gdi
{

Box Box::Intersect(const Box& other) const
{
    return {std::max(Left, other.Left), std::max(Top, other.Top), std::min(Right, other.Right),
            std::min(Bottom, other.Bottom)};
}

Canvas::Canvas(const Surface& surface, const Box& clip)
    : m_surface(surface), m_clip(clip.Intersect({0, 0, surface.Width, surface.Height}))
{
}

void Canvas::FillSpan(std::int64_t y, std::int64_t left, std::int64_t right, Pixel ink) const
{
    left = std::max(left, m_clip.Left);
    right = std::min(right, m_clip.Right);
    if (y < m_clip.Top || y >= m_clip.Bottom || left >= right)
        return;
    Pixel* const row = Row(y);
    std::fill(row + left, row + right, ink);
}

// Copying the first row of a wide box is faster than filling each row.
void Canvas::FillBox(const Box& box, Pixel ink) const
{
    constexpr std::int64_t wide = 16;
    const Box visible = box.Intersect(m_clip);
    const std::int64_t width = visible.Right - visible.Left;
    if (visible.IsEmpty())
        return;
    Pixel* const first = Row(visible.Top) + visible.Left;
    std::fill_n(first, width, ink);
    for (std::int64_t y = visible.Top + 1; y < visible.Bottom; ++y) {
        Pixel* const row = Row(y) + visible.Left;
        if (width < wide)
            std::fill_n(row, width, ink);
        else
            std::copy_n(first, width, row);
    }
}

// Comparing each row with the first one is faster than looking at its pixels.
bool Canvas::IsFilled(const Box& box, Pixel ink) const
{
    const Box visible = box.Intersect(m_clip);
    if (visible.IsEmpty())
        return true;
    const Pixel* const first = Row(visible.Top) + visible.Left;
    const auto width = static_cast<std::size_t>(visible.Right - visible.Left);
    if (std::any_of(first, first + width, [ink](Pixel pixel) { return pixel != ink; }))
        return false;
    for (std::int64_t y = visible.Top + 1; y < visible.Bottom; ++y) {
        if (std::memcmp(first, Row(y) + visible.Left, width * sizeof(Pixel)) != 0)
            return false;
    }
    return true;
}

} // namespace gdi
