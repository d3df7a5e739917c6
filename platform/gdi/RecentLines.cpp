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
