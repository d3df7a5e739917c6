#include "RecentLines.h"

#include <algorithm>

namespace gdi
{

std::optional<Box> RecentLines::Figure() const
{
    const std::size_t count = std::min(m_count, maxCount);
    if (count == 0)
        return std::nullopt;
    const Point end = FromLast(0).To;
    Box box{end.X, end.Y, end.X + 1, end.Y + 1};
    for (std::size_t i = 0; i < count; ++i) {
        const Line& line = FromLast(i);
        if (line.What != Kind::ThinLine || (i > 0 && line.To != FromLast(i - 1).From))
            return std::nullopt;
        const std::int64_t size = line.How.Thickness;
        box = {std::min(box.Left, line.From.X), std::min(box.Top, line.From.Y),
               std::max(box.Right, line.From.X + size), std::max(box.Bottom, line.From.Y + size)};
        if (line.From == end)
            return box;
    }
    return std::nullopt;
}

std::optional<RecentLines::FilledBox> RecentLines::Framed(Pixel frame) const
{
    constexpr std::size_t sides = 4;
    if (m_count <= sides || FromLast(sides).What != Kind::Box)
        return std::nullopt;
    const Line& fill = FromLast(sides);
    const std::int64_t width = FromLast(0).How.Thickness;
    const Box outer{fill.From.X - width, fill.From.Y - width, fill.To.X + width, fill.To.Y + width};
    for (std::size_t i = 0; i < sides; ++i) {
        const Line& side = FromLast(i);
        const bool isStraight = side.From.X == side.To.X || side.From.Y == side.To.Y;
        if (!isStraight || !side.How.IsSolid() || !IsSameColor(side.How.Ink, frame))
            return std::nullopt;
    }
    if (Figure() != outer || IsSameColor(fill.How.Ink, frame))
        return std::nullopt;
    return FilledBox{{fill.From.X, fill.From.Y, fill.To.X, fill.To.Y}, fill.How.Ink};
}

void RecentLines::Draw(const Canvas& canvas, Point origin) const
{
    const auto moved = [origin](Point point) { return Point{point.X - origin.X, point.Y - origin.Y}; };
    for (std::size_t i = std::min(m_count, maxCount); i-- > 0;) {
        const Line& line = FromLast(i);
        const Point from = moved(line.From);
        const Point to = moved(line.To);
        if (line.What == Kind::ThinLine)
            DrawThinLine(canvas, from, to, line.How);
        else if (line.What == Kind::WideLine)
            DrawWideLine(canvas, from, to, line.How.Thickness, line.How.Ink);
        else
            canvas.FillBox({from.X, from.Y, to.X, to.Y}, line.How.Ink);
    }
}

} // namespace gdi
