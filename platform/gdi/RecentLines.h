// The last lines and boxes drawn on a context, also where its clip box has cut them off.
#pragma once

#include "Rasteriser.h"

#include <array>
#include <cstddef>
#include <optional>

namespace gdi
{

class RecentLines
{
public:
    // As for DrawThinLine.
    void AddThin(Point from, Point to, const Stroke& stroke)
    {
        if (from != to)
            Add({Kind::ThinLine, from, to, stroke});
    }
    // As for DrawWideLine.
    void AddWide(Point first, Point last, std::int64_t width, Pixel ink)
    {
        Add({Kind::WideLine, first, last, {.Ink = ink, .Gap = {}, .Thickness = width}});
    }
    void AddBox(const Box& box, Pixel ink)
    {
        Add({Kind::Box, {box.Left, box.Top}, {box.Right, box.Bottom}, {.Ink = ink, .Gap = {}}});
    }

    // The box of the closed figure that the last lines make, if they make one and a box holds it.
    std::optional<Box> Figure() const;

    // The inside of the last lines, if they are the frame of this colour around a box of another one.
    struct FilledBox {
        Box Place;
        Pixel Ink;
    };
    std::optional<FilledBox> Framed(Pixel frame) const;

    // Draws them all again, with the box's corner as the origin.
    void Draw(const Canvas& canvas, Point origin) const;

private:
    enum class Kind { ThinLine, WideLine, Box };
    struct Line {
        Kind What;
        Point From;
        Point To;
        Stroke How;
    };
    static constexpr std::size_t maxCount =
        8; // four sides, the box within, the curve's two lines, and one more

    void Add(const Line& line) { m_lines[m_count++ % maxCount] = line; }
    const Line& FromLast(std::size_t i) const { return m_lines[(m_count - 1 - i) % maxCount]; }

    std::array<Line, maxCount> m_lines{};
    std::size_t m_count = 0; // of all so far
};

// As FloodFill, but if the last lines make a closed figure that the clip box cuts, the result is the cut of
// what the whole figure would get: a figure whose inside has to be filled from a point, or around a corner,
// outside. Beyond 2^18 pixels a figure's size counts for nothing.
Rows FloodFigure(const Canvas& canvas, Point from, Pixel border, Pixel ink, const RecentLines& lines);

} // namespace gdi
