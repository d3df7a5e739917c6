// The pixels that logical coordinates lie on.
#pragma once

#include "Surface.h"

#include <algorithm>
#include <cmath>

namespace gdi
{

// A screen has Scale() pixels for each unit. Coordinates are those of unit squares' edges: an edge lies on
// the nearest pixel edge, so that areas that meet in logical coordinates meet in pixels.
class PixelGrid
{
public:
    PixelGrid() = default;

    // The origin is left and top pixels from the screen's; the first pixel of the grid is the nearest one.
    PixelGrid(double scale, double left, double top)
        : m_scale(scale), m_left(left - std::round(left)), m_top(top - std::round(top))
    {
    }

    double Scale() const { return m_scale; }
    // Of the origin from the first pixel's edge, at most half a pixel.
    double Left() const { return m_left; }
    double Top() const { return m_top; }

    std::int64_t X(std::int64_t x) const { return Edge(x, m_left); }
    std::int64_t Y(std::int64_t y) const { return Edge(y, m_top); }
    Point Corner(Point point) const { return {X(point.X), Y(point.Y)}; }
    Box Pixels(const Box& box) const { return {X(box.Left), Y(box.Top), X(box.Right), Y(box.Bottom)}; }

    // Of the unit square at a point.
    Point Middle(Point point) const { return OnLine(point, 1, 1); }

    // Of a line that is that wide in units and in pixels: an odd width runs through the middles of unit
    // squares or pixels, an even one along their first edges.
    Point OnLine(Point point, std::int64_t units, std::int64_t pixels) const
    {
        if (m_scale == 1)
            return point;
        const double middle = units % 2 != 0 ? 0.5 : 0;
        const double half = pixels % 2 != 0 ? 0 : 0.5;
        return {ToInteger((static_cast<double>(point.X) + middle) * m_scale + m_left + half),
                ToInteger((static_cast<double>(point.Y) + middle) * m_scale + m_top + half)};
    }

    // Lengths in pixels. From scale 1 on, a line of one unit never leaves its unit squares; wherever it lies,
    // it is as thick.
    std::int64_t Thickness() const { return std::max<std::int64_t>(1, ToInteger(m_scale + rounding)); }
    std::int64_t Length(std::int64_t units) const { return Edge(units, 0); }

    friend bool operator==(const PixelGrid&, const PixelGrid&) = default;

private:
    static constexpr double rounding = 1e-6; // of scales that are products

    static std::int64_t ToInteger(double value) { return static_cast<std::int64_t>(std::floor(value)); }
    std::int64_t Edge(std::int64_t units, double origin) const
    {
        return m_scale == 1 ? units : ToInteger(static_cast<double>(units) * m_scale + origin + 0.5);
    }

    double m_scale = 1;
    double m_left = 0;
    double m_top = 0;
};

} // namespace gdi
