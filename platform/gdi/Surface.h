// The pixels that a device context draws on.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <windef.h>

namespace gdi
{

using Pixel = std::uint32_t; // 0xFFrrggbb
constexpr Pixel opaqueAlpha = 0xFF000000;
constexpr Pixel colorBits = 0x00FFFFFF;

// Ignores the top byte of a COLORREF.
constexpr Pixel ToPixel(COLORREF color)
{
    return opaqueAlpha | ((color & 0xFF) << 16) | (color & 0xFF00) | ((color >> 16) & 0xFF);
}

constexpr bool IsSameColor(Pixel first, Pixel second)
{
    return ((first ^ second) & colorBits) == 0;
}

// Pixels owned by a bitmap, or by an image outside of the layer. Rows are Stride pixels apart.
struct Surface {
    Pixel* Pixels = nullptr;
    int Width = 0;
    int Height = 0;
    std::ptrdiff_t Stride = 0;
};

struct Point {
    std::int64_t X;
    std::int64_t Y;

    friend bool operator==(const Point&, const Point&) = default;
};

// Half-open, as all boxes are.
struct Box {
    std::int64_t Left;
    std::int64_t Top;
    std::int64_t Right;
    std::int64_t Bottom;

    friend bool operator==(const Box&, const Box&) = default;

    bool IsEmpty() const { return Left >= Right || Top >= Bottom; }
    Box Intersect(const Box& other) const;
    bool Contains(Point point) const
    {
        return point.X >= Left && point.X < Right && point.Y >= Top && point.Y < Bottom;
    }
    void Include(const Box& other)
    {
        *this = {std::min(Left, other.Left), std::min(Top, other.Top), std::max(Right, other.Right),
                 std::max(Bottom, other.Bottom)};
    }
    bool IsWithin(const Box& other) const
    {
        return Left >= other.Left && Top >= other.Top && Right <= other.Right && Bottom <= other.Bottom;
    }
};

// Beyond all coordinates, so that including a box gives that box.
constexpr std::int64_t noPlace = std::int64_t{1} << 40;
constexpr Box noBox{noPlace, noPlace, -noPlace, -noPlace};

inline Box ToBox(const RECT& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// A surface with a clip box.
class Canvas
{
public:
    Canvas() = default;

    // Limits the clip box to the surface.
    Canvas(const Surface& surface, const Box& clip);

    const Surface& Target() const { return m_surface; }
    const Box& Clip() const { return m_clip; }
    bool Contains(std::int64_t x, std::int64_t y) const { return m_clip.Contains({x, y}); }

    // The point has to lie within the clip box.
    Pixel& At(std::int64_t x, std::int64_t y) const { return Row(y)[x]; }
    Pixel* Row(std::int64_t y) const { return m_surface.Pixels + y * m_surface.Stride; }

    void FillSpan(std::int64_t y, std::int64_t left, std::int64_t right, Pixel ink) const;
    void FillBox(const Box& box, Pixel ink) const;

    // Whether what there is of the box within the clip box is all in one colour.
    bool IsFilled(const Box& box, Pixel ink) const;

private:
    Surface m_surface;
    Box m_clip{0, 0, 0, 0};
};

// Calls draw(pixel) for every second square of that many pixels within the box. The position on the surface
// decides which, so that dotted areas that meet continue each other, and a second call gets the same pixels.
template <class Draw>
void ForEachDot(const Canvas& canvas, const Box& box, std::int64_t size, const Draw& draw)
{
    const Box visible = box.Intersect(canvas.Clip());
    for (std::int64_t y = visible.Top; y < visible.Bottom; ++y) {
        for (std::int64_t x = visible.Left; x < visible.Right; ++x) {
            if (((x / size ^ y / size) & 1) == 0)
                draw(canvas.At(x, y));
        }
    }
}

} // namespace gdi
