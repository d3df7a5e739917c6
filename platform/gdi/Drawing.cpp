// Drawing with the objects selected into a context.
#include "DeviceContext.h"

#include <algorithm>
#include <cstring>

namespace gdi
{

namespace
{

std::int64_t Bounded(std::int64_t coordinate)
{
    return std::clamp(coordinate, -coordinateLimit, coordinateLimit);
}

Point ToPoint(std::int64_t x, std::int64_t y)
{
    return {Bounded(x), Bounded(y)};
}

// The box of a shape with its sides in order. Without an outline it loses its right and bottom edge.
Box ShapeBox(const DeviceContext& context, int left, int top, int right, int bottom)
{
    const Point first = ToPoint(std::min(left, right), std::min(top, bottom));
    const Point last = ToPoint(std::max(left, right), std::max(top, bottom));
    const int missing = context.SelectedPen->IsNull() ? 1 : 0;
    return {first.X, first.Y, last.X - missing, last.Y - missing};
}

void DrawLine(const DeviceContext& context, Point from, Point to)
{
    const Pen& pen = *context.SelectedPen;
    if (pen.IsNull())
        return;
    if (pen.IsWide())
        DrawWideLine(context.Drawing, from, to, pen.Width(), pen.Ink());
    else
        DrawThinLine(context.Drawing, from, to, context.PenStroke());
}

// Clockwise: each corner is the start of one side.
void DrawFrame(const DeviceContext& context, const Box& box)
{
    const Stroke stroke = context.PenStroke();
    const std::int64_t right = box.Right - 1;
    const std::int64_t bottom = box.Bottom - 1;
    const Canvas& canvas = context.Drawing;
    if (right == box.Left || bottom == box.Top) {
        const Point end = bottom == box.Top ? Point{box.Right, box.Top} : Point{box.Left, box.Bottom};
        return DrawThinLine(canvas, {box.Left, box.Top}, end, stroke);
    }
    DrawThinLine(canvas, {box.Left, box.Top}, {right, box.Top}, stroke);
    DrawThinLine(canvas, {right, box.Top}, {right, bottom}, stroke);
    DrawThinLine(canvas, {right, bottom}, {box.Left, bottom}, stroke);
    DrawThinLine(canvas, {box.Left, bottom}, {box.Left, box.Top}, stroke);
}

// Takes the rows in an order that reads each before it is overwritten.
void CopyPixels(const Canvas& to, const Box& box, const Canvas& from, std::int64_t down, std::int64_t across)
{
    const std::int64_t height = box.Bottom - box.Top;
    const auto bytes = static_cast<std::size_t>(box.Right - box.Left) * sizeof(Pixel);
    for (std::int64_t i = 0; i < height; ++i) {
        const std::int64_t y = down < 0 ? box.Bottom - 1 - i : box.Top + i;
        std::memmove(to.Row(y) + box.Left, from.Row(y + down) + box.Left + across, bytes);
    }
}

} // namespace

} // namespace gdi

using gdi::Box;
using gdi::DeviceContext;

BOOL MoveToEx(HDC context, int x, int y, LPPOINT previous)
{
    if (context == nullptr)
        return FALSE;
    POINT& position = DeviceContext::FromHandle(context)->Position;
    if (previous != nullptr)
        *previous = position;
    position = {x, y};
    return TRUE;
}

BOOL LineTo(HDC context, int x, int y)
{
    if (context == nullptr)
        return FALSE;
    DeviceContext& target = *DeviceContext::FromHandle(context);
    gdi::DrawLine(target, gdi::ToPoint(target.Position.x, target.Position.y), gdi::ToPoint(x, y));
    target.Position = {x, y};
    return TRUE;
}

BOOL Rectangle(HDC context, int left, int top, int right, int bottom)
{
    if (context == nullptr)
        return FALSE;
    const DeviceContext& target = *DeviceContext::FromHandle(context);
    const Box box = gdi::ShapeBox(target, left, top, right, bottom);
    if (box.IsEmpty())
        return TRUE;
    const bool hasOutline = !target.SelectedPen->IsNull();
    if (const auto ink = target.SelectedBrush->Ink()) {
        const int frame = hasOutline ? 1 : 0;
        target.Drawing.FillBox({box.Left + frame, box.Top + frame, box.Right - frame, box.Bottom - frame},
                               *ink);
    }
    if (hasOutline)
        gdi::DrawFrame(target, box);
    return TRUE;
}

BOOL Ellipse(HDC context, int left, int top, int right, int bottom)
{
    if (context == nullptr)
        return FALSE;
    const DeviceContext& target = *DeviceContext::FromHandle(context);
    const gdi::Pen& pen = *target.SelectedPen;
    const auto outline = pen.IsNull() ? std::nullopt : std::optional<gdi::Pixel>(pen.Ink());
    gdi::DrawEllipse(target.Drawing, gdi::ShapeBox(target, left, top, right, bottom), outline,
                     target.SelectedBrush->Ink());
    return TRUE;
}

BOOL FloodFill(HDC context, int x, int y, COLORREF border)
{
    if (context == nullptr)
        return FALSE;
    const DeviceContext& target = *DeviceContext::FromHandle(context);
    const auto ink = target.SelectedBrush->Ink();
    return ink && gdi::FloodFill(target.Drawing, {x, y}, gdi::ToPixel(border), *ink) ? TRUE : FALSE;
}

BOOL CloseFigure(HDC /*context*/)
{
    return FALSE;
}

BOOL FillRect(HDC context, LPCRECT rectangle, HBRUSH brush)
{
    const auto* const object = dynamic_cast<gdi::Brush*>(gdi::GdiObject::FromHandle(brush));
    if (context == nullptr || object == nullptr || rectangle == nullptr)
        return FALSE;
    if (const auto ink = object->Ink())
        DeviceContext::FromHandle(context)->Drawing.FillBox(gdi::ToBox(*rectangle), *ink);
    return TRUE;
}

BOOL BitBlt(HDC to, int x, int y, int width, int height, HDC from, int fromX, int fromY, DWORD operation)
{
    if (to == nullptr || from == nullptr || operation != SRCCOPY)
        return FALSE;
    const gdi::Canvas& target = DeviceContext::FromHandle(to)->Drawing;
    const gdi::Canvas& source = DeviceContext::FromHandle(from)->Drawing;
    const std::int64_t across = std::int64_t{fromX} - x;
    const std::int64_t down = std::int64_t{fromY} - y;
    const Box& there = source.Clip();
    const Box readable{there.Left - across, there.Top - down, there.Right - across, there.Bottom - down};
    const Box wanted{x, y, std::int64_t{x} + width, std::int64_t{y} + height};
    const Box box = wanted.Intersect(target.Clip()).Intersect(readable);
    if (!box.IsEmpty())
        gdi::CopyPixels(target, box, source, down, across);
    return TRUE;
}
