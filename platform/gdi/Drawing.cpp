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

Point Bounded(Point point)
{
    return {Bounded(point.X), Bounded(point.Y)};
}

// The pixels of a shape's box with its sides in order. Without an outline it loses its right and bottom edge.
Box ShapeBox(const DeviceContext& context, int left, int top, int right, int bottom)
{
    const int missing = context.SelectedPen->IsNull() ? 1 : 0;
    const Point first{std::min(left, right), std::min(top, bottom)};
    const Point last{std::int64_t{std::max(left, right)} - missing,
                     std::int64_t{std::max(top, bottom)} - missing};
    const Point corner = Bounded(context.Grid.Corner(first));
    const Point opposite = Bounded(context.Grid.Corner(last));
    return {corner.X, corner.Y, opposite.X, opposite.Y};
}

void DrawStroke(DeviceContext& context, Point from, Point to, const Stroke& stroke)
{
    DrawThinLine(context.Drawing, from, to, stroke);
    context.Drawn.Include({std::min(from.X, to.X), std::min(from.Y, to.Y),
                           std::max(from.X, to.X) + stroke.Thickness,
                           std::max(from.Y, to.Y) + stroke.Thickness});
    context.Lines.AddThin(from, to, stroke);
}

void DrawLine(DeviceContext& context, Point from, Point to)
{
    const Pen& pen = *context.SelectedPen;
    if (pen.IsNull())
        return;
    const PixelGrid& grid = context.Grid;
    if (!pen.IsWide())
        return DrawStroke(context, Bounded(grid.Corner(from)), Bounded(grid.Corner(to)), context.PenStroke());
    const std::optional<Point> last = LastPixelOfLine(from, to);
    if (!last)
        return;
    const std::int64_t width = grid.Length(pen.Width());
    const Point first = Bounded(grid.OnLine(from, pen.Width(), width));
    const Point end = Bounded(grid.OnLine(*last, pen.Width(), width));
    DrawWideLine(context.Drawing, first, end, width, pen.Ink());
    const std::int64_t reach = width / 2;
    context.Drawn.Include({std::min(first.X, end.X) - reach, std::min(first.Y, end.Y) - reach,
                           std::max(first.X, end.X) + reach + 1, std::max(first.Y, end.Y) + reach + 1});
    context.Lines.AddWide(first, end, width, pen.Ink());
}

// Clockwise: each corner is the start of one side.
void DrawFrame(DeviceContext& context, const Box& box)
{
    const Stroke stroke = context.PenStroke();
    const std::int64_t right = box.Right - stroke.Thickness;
    const std::int64_t bottom = box.Bottom - stroke.Thickness;
    if (right <= box.Left || bottom <= box.Top) {
        const Point end = bottom <= box.Top ? Point{box.Right, box.Top} : Point{box.Left, box.Bottom};
        return DrawStroke(context, {box.Left, box.Top}, end, stroke);
    }
    DrawStroke(context, {box.Left, box.Top}, {right, box.Top}, stroke);
    DrawStroke(context, {right, box.Top}, {right, bottom}, stroke);
    DrawStroke(context, {right, bottom}, {box.Left, bottom}, stroke);
    DrawStroke(context, {box.Left, bottom}, {box.Left, box.Top}, stroke);
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
    gdi::DrawLine(target, gdi::Bounded({target.Position.x, target.Position.y}), gdi::Bounded({x, y}));
    target.Position = {x, y};
    return TRUE;
}

BOOL Rectangle(HDC context, int left, int top, int right, int bottom)
{
    if (context == nullptr)
        return FALSE;
    DeviceContext& target = *DeviceContext::FromHandle(context);
    const Box box = gdi::ShapeBox(target, left, top, right, bottom);
    if (box.IsEmpty())
        return TRUE;
    const bool hasOutline = !target.SelectedPen->IsNull();
    if (const auto ink = target.SelectedBrush->Ink()) {
        const std::int64_t frame = hasOutline ? target.Grid.Thickness() : 0;
        const Box within{box.Left + frame, box.Top + frame, box.Right - frame, box.Bottom - frame};
        target.Fill(within, *ink);
        target.Lines.AddBox(within, *ink);
    }
    if (hasOutline)
        gdi::DrawFrame(target, box);
    return TRUE;
}

BOOL Ellipse(HDC context, int left, int top, int right, int bottom)
{
    if (context == nullptr)
        return FALSE;
    DeviceContext& target = *DeviceContext::FromHandle(context);
    const gdi::Pen& pen = *target.SelectedPen;
    const auto outline = pen.IsNull() ? std::nullopt : std::optional<gdi::Pixel>(pen.Ink());
    const Box box = gdi::ShapeBox(target, left, top, right, bottom);
    gdi::DrawEllipse(target.Drawing, box, outline, target.SelectedBrush->Ink(), target.Grid.Thickness());
    target.Drawn.Include(box);
    return TRUE;
}

BOOL FloodFill(HDC context, int x, int y, COLORREF border)
{
    if (context == nullptr)
        return FALSE;
    DeviceContext& target = *DeviceContext::FromHandle(context);
    const auto ink = target.SelectedBrush->Ink();
    if (!ink)
        return FALSE;
    const gdi::Point from = target.Grid.Middle({x, y});
    const gdi::Rows rows = gdi::FloodFigure(target.Drawing, from, gdi::ToPixel(border), *ink, target.Lines);
    if (rows.IsEmpty())
        return FALSE;
    target.Drawn.Include({from.X, rows.Top, from.X + 1, rows.Bottom});
    return TRUE;
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
        DeviceContext::FromHandle(context)->FillUnits(gdi::ToBox(*rectangle), *ink);
    return TRUE;
}

BOOL BitBlt(HDC to, int x, int y, int width, int height, HDC from, int fromX, int fromY, DWORD operation)
{
    if (to == nullptr || from == nullptr || operation != SRCCOPY)
        return FALSE;
    const gdi::Canvas& target = DeviceContext::FromHandle(to)->Drawing;
    const gdi::Canvas& source = DeviceContext::FromHandle(from)->Drawing;
    const gdi::PixelGrid& grid = DeviceContext::FromHandle(to)->Grid;
    const gdi::Point first = DeviceContext::FromHandle(from)->Grid.Corner({fromX, fromY});
    const std::int64_t across = first.X - grid.X(x);
    const std::int64_t down = first.Y - grid.Y(y);
    const Box& there = source.Clip();
    const Box readable{there.Left - across, there.Top - down, there.Right - across, there.Bottom - down};
    const Box wanted = grid.Pixels({x, y, std::int64_t{x} + width, std::int64_t{y} + height});
    const Box box = wanted.Intersect(target.Clip()).Intersect(readable);
    if (box.IsEmpty())
        return TRUE;
    gdi::CopyPixels(target, box, source, down, across);
    DeviceContext::FromHandle(to)->Drawn.Include(box);
    return TRUE;
}
