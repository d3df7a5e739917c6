// Edges, the scroll button and the focus rectangle.
#include "DeviceContext.h"

#include <algorithm>

namespace gdi
{

namespace
{

// The colours of a border: left and top sides, right and bottom sides.
struct Border {
    UINT Edge;
    int Lit;
    int Shaded;
};
constexpr Border outerBorders[] = {
    {BDR_RAISEDOUTER, COLOR_3DLIGHT, COLOR_3DDKSHADOW},
    {BDR_SUNKENOUTER, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT},
};
constexpr Border innerBorders[] = {
    {BDR_RAISEDINNER, COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW},
    {BDR_SUNKENINNER, COLOR_3DDKSHADOW, COLOR_3DLIGHT},
};
constexpr std::int64_t arrowsInButton = 4; // by height

Pixel SysPixel(int index)
{
    return ToPixel(GetSysColor(index));
}

void DrawBorder(const DeviceContext& context, const Box& box, const Border& border, UINT sides)
{
    const Canvas& canvas = context.Drawing;
    const std::int64_t width = context.Grid.Thickness();
    // A row of cells has an edge for each column, of which few are visible.
    const auto fill = [&canvas](const Box& side, int color) {
        if (!side.Intersect(canvas.Clip()).IsEmpty())
            canvas.FillBox(side, SysPixel(color));
    };
    if ((sides & BF_LEFT) != 0)
        fill({box.Left, box.Top, box.Left + width, box.Bottom}, border.Lit);
    if ((sides & BF_TOP) != 0)
        fill({box.Left, box.Top, box.Right, box.Top + width}, border.Lit);
    if ((sides & BF_RIGHT) != 0)
        fill({box.Right - width, box.Top, box.Right, box.Bottom}, border.Shaded);
    if ((sides & BF_BOTTOM) != 0)
        fill({box.Left, box.Bottom - width, box.Right, box.Bottom}, border.Shaded);
}

// The box without the named sides.
Box Within(const DeviceContext& context, const Box& box, UINT sides)
{
    const auto width = [&](UINT side) { return (sides & side) != 0 ? context.Grid.Thickness() : 0; };
    return {box.Left + width(BF_LEFT), box.Top + width(BF_TOP), box.Right - width(BF_RIGHT),
            box.Bottom - width(BF_BOTTOM)};
}

// All boxes here are in pixels.
void DrawEdges(const DeviceContext& context, Box box, UINT edge, UINT sides)
{
    for (const Border& border : outerBorders) {
        if ((edge & border.Edge) != 0) {
            DrawBorder(context, box, border, sides);
            box = Within(context, box, sides);
            break;
        }
    }
    for (const Border& border : innerBorders) {
        if ((edge & border.Edge) != 0)
            return DrawBorder(context, box, border, sides);
    }
}

// Widest at the top, one pixel at the bottom.
void DrawArrowDown(const Canvas& canvas, const Box& button, std::int64_t shift, Pixel ink)
{
    const std::int64_t width = button.Right - button.Left;
    const std::int64_t height = button.Bottom - button.Top;
    const std::int64_t rows = std::max<std::int64_t>(1, std::min(width, height) / arrowsInButton);
    const std::int64_t tip = button.Left + (width - 1) / 2 + shift;
    const std::int64_t top = button.Top + (height - rows) / 2 + shift;
    const std::int64_t bottom = std::min(top + rows, canvas.Clip().Bottom);
    for (std::int64_t y = std::max(top, canvas.Clip().Top); y < bottom; ++y) {
        const std::int64_t half = top + rows - 1 - y;
        canvas.FillSpan(y, tip - half, tip + half + 1, ink);
    }
}

void DrawScrollButton(const DeviceContext& context, const Box& box, UINT state)
{
    const Canvas& canvas = context.Drawing;
    const bool isPushed = (state & DFCS_PUSHED) != 0;
    canvas.FillBox(box, SysPixel(isPushed ? COLOR_BTNSHADOW : COLOR_BTNFACE));
    if (isPushed)
        canvas.FillBox(Within(context, box, BF_RECT), SysPixel(COLOR_BTNFACE));
    else
        DrawEdges(context, box, EDGE_RAISED, BF_RECT);
    const std::int64_t step = context.Grid.Thickness();
    const std::int64_t shift = isPushed ? step : 0;
    if ((state & DFCS_INACTIVE) == 0)
        return DrawArrowDown(canvas, box, shift, SysPixel(COLOR_BTNTEXT));
    DrawArrowDown(canvas, box, shift + step, SysPixel(COLOR_BTNHIGHLIGHT));
    DrawArrowDown(canvas, box, shift, SysPixel(COLOR_BTNSHADOW));
}

void InvertDots(const DeviceContext& context, const Box& box)
{
    ForEachDot(context.Drawing, box, context.Grid.Thickness(), [](Pixel& pixel) { pixel ^= colorBits; });
}

} // namespace

} // namespace gdi

using gdi::Box;
using gdi::DeviceContext;

BOOL DrawEdge(HDC context, LPRECT rectangle, UINT edge, UINT flags)
{
    if (context == nullptr || rectangle == nullptr)
        return FALSE;
    DeviceContext& target = *DeviceContext::FromHandle(context);
    const Box box = target.Grid.Pixels(gdi::ToBox(*rectangle));
    gdi::DrawEdges(target, box, edge, flags);
    target.Drawn.Include(box);
    return TRUE;
}

BOOL DrawFrameControl(HDC context, LPRECT rectangle, UINT type, UINT state)
{
    constexpr UINT mark = DFCS_SCROLLDOWN;
    if (context == nullptr || rectangle == nullptr || type != DFC_SCROLL ||
        (state & ~(DFCS_INACTIVE | DFCS_PUSHED)) != mark)
        return FALSE;
    DeviceContext& target = *DeviceContext::FromHandle(context);
    const Box box = target.Grid.Pixels(gdi::ToBox(*rectangle));
    if (box.IsEmpty())
        return TRUE;
    gdi::DrawScrollButton(target, box, state);
    target.Drawn.Include(box);
    return TRUE;
}

BOOL DrawFocusRect(HDC context, LPCRECT rectangle)
{
    if (context == nullptr || rectangle == nullptr)
        return FALSE;
    DeviceContext& target = *DeviceContext::FromHandle(context);
    const Box box = target.PixelsOfStrip(gdi::ToBox(*rectangle));
    if (box.IsEmpty())
        return TRUE;
    target.Drawn.Include(box);
    const std::int64_t width = target.Grid.Thickness();
    const Box within{box.Left + width, box.Top + width, box.Right - width, box.Bottom - width};
    gdi::InvertDots(target, {box.Left, box.Top, box.Right, box.Top + width});
    if (within.Bottom >= box.Top + width)
        gdi::InvertDots(target, {box.Left, within.Bottom, box.Right, box.Bottom});
    gdi::InvertDots(target, {box.Left, within.Top, box.Left + width, within.Bottom});
    if (within.Right >= box.Left + width)
        gdi::InvertDots(target, {within.Right, within.Top, box.Right, within.Bottom});
    return TRUE;
}
