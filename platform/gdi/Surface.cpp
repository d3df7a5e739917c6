#include "Surface.h"

#include <algorithm>

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

void Canvas::FillBox(const Box& box, Pixel ink) const
{
    const Box visible = box.Intersect(m_clip);
    if (visible.Left >= visible.Right)
        return;
    for (std::int64_t y = visible.Top; y < visible.Bottom; ++y)
        std::fill(Row(y) + visible.Left, Row(y) + visible.Right, ink);
}

} // namespace gdi
