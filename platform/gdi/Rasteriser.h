// Rasterises shapes with integers. Pixels are computed from the unclipped shape, so that clipping doesn't
// move them; the time is bounded by the clip box, whatever the size of the shape. Coordinates are within
// +-2^28.
#pragma once

#include "Surface.h"

#include <optional>

namespace gdi
{

// How a line of one unit is drawn.
struct Stroke {
    Pixel Ink = opaqueAlpha;
    std::uint32_t Dashes = 1;   // bit i: unit i of a period is inked
    int Period = 1;             // in units
    std::optional<Pixel> Gap;   // colour of the other units; none leaves them unchanged
    std::int64_t Thickness = 1; // in pixels
    double Scale = 1;           // pixels of a unit

    bool IsSolid() const { return Period == 1; }
};

// Draws the pixels from the first point up to, not including, the second. A tie between two pixels goes to
// the one nearer to the upper end, so that the pixels don't depend on the direction, and a horizontally
// mirrored line has mirrored pixels. In a thicker line each point is a square, of which it is the first
// pixel: the line ends where the square of the second point begins.
void DrawThinLine(const Canvas& canvas, Point from, Point to, const Stroke& stroke);

// The last pixel that DrawThinLine draws; nothing if it draws none.
std::optional<Point> LastPixelOfLine(Point from, Point to);

// Draws the pixels whose centres are within half the width of the segment between two points. It runs through
// pixel centres for an odd width, and half a pixel above and to the left of them for an even one.
void DrawWideLine(const Canvas& canvas, Point first, Point last, std::int64_t width, Pixel ink);

// Draws the pixels whose centres lie in the ellipse inscribed in the box. The outline consists of those with
// a neighbour above, below or beside that lies outside; the rest is the interior. Within a thicker outline
// the interior is the ellipse of the box without its border.
void DrawEllipse(const Canvas& canvas, const Box& box, std::optional<Pixel> outline,
                 std::optional<Pixel> interior, std::int64_t thickness = 1);

// Fills the pixels connected to the first one vertically and horizontally, up to the border colour and the
// clip box. Gives the rows it has filled; none if the first pixel has that colour or is outside of the clip
// box.
struct Rows {
    std::int64_t Top = 0;
    std::int64_t Bottom = 0;

    bool IsEmpty() const { return Top >= Bottom; }
};
Rows FloodFill(const Canvas& canvas, Point from, Pixel border, Pixel ink);

} // namespace gdi
