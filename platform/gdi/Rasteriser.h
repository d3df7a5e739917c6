// Shapes to pixels, in integers. Every shape is computed from its whole, unclipped form, so that clipping
// only cuts; the work is bounded by the clip box, however large the shape is. Coordinates are at most 2^28 in
// size.
#pragma once

#include "Surface.h"

#include <optional>

namespace gdi
{

// What a line one pixel wide is drawn with.
struct Stroke {
    Pixel Ink = opaqueAlpha;
    std::uint32_t Dashes = 1; // bit i: the pixel i steps into a period is inked
    int Period = 1;           // in pixels
    std::optional<Pixel> Gap; // the colour of the other pixels; without one they stay untouched

    bool IsSolid() const { return Period == 1; }
};

// Draws every pixel from the first point up to, not including, the second. A tie between two pixels goes to
// the one nearer to the upper end, so that a line and its mirror image left to right have mirrored pixels,
// and the direction of drawing makes no difference.
void DrawThinLine(const Canvas& canvas, Point from, Point to, const Stroke& stroke);

// The last pixel that DrawThinLine draws; nothing if it draws none.
std::optional<Point> LastPixelOfLine(Point from, Point to);

// Draws the pixels whose centres are no further than half the width from the way between the first and the
// last pixel of the thin line. That way runs through pixel centres for an odd width, and half a pixel above
// and to the left of them for an even one.
void DrawWideLine(const Canvas& canvas, Point from, Point to, std::int64_t width, Pixel ink);

// Draws the pixels of the box whose centres lie in the ellipse that touches its sides. The outline is those
// of them that have a neighbour above, below or beside outside the ellipse; the rest is the interior.
void DrawEllipse(const Canvas& canvas, const Box& box, std::optional<Pixel> outline,
                 std::optional<Pixel> interior);

// Inks the pixels that can be reached from the first one up, down and sideways without touching the border
// colour or the edge of the clip box. False, and nothing done, if the first pixel has that colour or is
// outside the clip box.
bool FloodFill(const Canvas& canvas, Point from, Pixel border, Pixel ink);

} // namespace gdi
