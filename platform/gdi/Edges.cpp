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

void DrawBorder(const Canvas& canvas, const Box& box, const Border& border, UINT sides)
{
    const Pixel lit = SysPixel(border.Lit);
    const Pixel shaded = SysPixel(border.Shaded);
    if ((sides & BF_LEFT) != 0)
        canvas.FillBox({box.Left, box.Top, box.Left + 1, box.Bottom}, lit);
    if ((sides & BF_TOP) != 0)
        canvas.FillBox({box.Left, box.Top, box.Right, box.Top + 1}, lit);
    if ((sides & BF_RIGHT) != 0)
        canvas.FillBox({box.Right - 1, box.Top, box.Right, box.Bottom}, shaded);
    if ((sides & BF_BOTTOM) != 0)
        canvas.FillBox({box.Left, box.Bottom - 1, box.Right, box.Bottom}, shaded);
}

// The box without the named sides.
Box Within(const Box& box, UINT sides)
{
    return {box.Left + ((sides & BF_LEFT) != 0 ? 1 : 0), box.Top + ((sides & BF_TOP) != 0 ? 1 : 0),
            box.Right - ((sides & BF_RIGHT) != 0 ? 1 : 0), box.Bottom - ((sides & BF_BOTTOM) != 0 ? 1 : 0)};
}

void DrawEdges(const Canvas& canvas, Box box, UINT edge, UINT sides)
{
    for (const Border& border : outerBorders) {
        if ((edge & border.Edge) != 0) {
            DrawBorder(canvas, box, border, sides);
            box = Within(box, sides);
            break;
        }
    }
    for (const Border& border : innerBorders) {
        if ((edge & border.Edge) != 0)
            return DrawBorder(canvas, box, border, sides);
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

void DrawScrollButton(const Canvas& canvas, const Box& box, UINT state)
{
    const bool isPushed = (state & DFCS_PUSHED) != 0;
    canvas.FillBox(box, SysPixel(isPushed ? COLOR_BTNSHADOW : COLOR_BTNFACE));
    if (isPushed)
        canvas.FillBox(Within(box, BF_RECT), SysPixel(COLOR_BTNFACE));
    else
        DrawEdges(canvas, box, EDGE_RAISED, BF_RECT);
    const std::int64_t shift = isPushed ? 1 : 0;
    if ((state & DFCS_INACTIVE) == 0)
        return DrawArrowDown(canvas, box, shift, SysPixel(COLOR_BTNTEXT));
    DrawArrowDown(canvas, box, shift + 1, SysPixel(COLOR_BTNHIGHLIGHT));
    DrawArrowDown(canvas, box, shift, SysPixel(COLOR_BTNSHADOW));
}

// Chooses by the position on the surface, so that each call inverts the same pixels.
void InvertEverySecond(const Canvas& canvas, const Box& box)
{
    const Box visible = box.Intersect(canvas.Clip());
    for (std::int64_t y = visible.Top; y < visible.Bottom; ++y) {
        for (std::int64_t x = visible.Left + ((visible.Left ^ y) & 1); x < visible.Right; x += 2)
            canvas.At(x, y) ^= colorBits;
    }
}

} // namespace

} // namespace gdi

using gdi::Box;
using gdi::DeviceContext;

BOOL DrawEdge(HDC context, LPRECT rectangle, UINT edge, UINT flags)
{
    if (context == nullptr || rectangle == nullptr)
        return FALSE;
    gdi::DrawEdges(DeviceContext::FromHandle(context)->Drawing, gdi::ToBox(*rectangle), edge, flags);
    return TRUE;
}

BOOL DrawFrameControl(HDC context, LPRECT rectangle, UINT type, UINT state)
{
    constexpr UINT mark = DFCS_SCROLLDOWN;
    if (context == nullptr || rectangle == nullptr || type != DFC_SCROLL ||
        (state & ~(DFCS_INACTIVE | DFCS_PUSHED)) != mark)
        return FALSE;
    const Box box = gdi::ToBox(*rectangle);
    if (!box.IsEmpty())
        gdi::DrawScrollButton(DeviceContext::FromHandle(context)->Drawing, box, state);
    return TRUE;
}

BOOL DrawFocusRect(HDC context, LPCRECT rectangle)
{
    if (context == nullptr || rectangle == nullptr)
        return FALSE;
    const gdi::Canvas& canvas = DeviceContext::FromHandle(context)->Drawing;
    const Box box = gdi::ToBox(*rectangle);
    if (box.IsEmpty())
        return TRUE;
    const Box within{box.Left, box.Top + 1, box.Right, box.Bottom - 1};
    gdi::InvertEverySecond(canvas, {box.Left, box.Top, box.Right, box.Top + 1});
    if (box.Bottom - 1 > box.Top)
        gdi::InvertEverySecond(canvas, {box.Left, box.Bottom - 1, box.Right, box.Bottom});
    gdi::InvertEverySecond(canvas, {box.Left, within.Top, box.Left + 1, within.Bottom});
    if (box.Right - 1 > box.Left)
        gdi::InvertEverySecond(canvas, {box.Right - 1, within.Top, box.Right, within.Bottom});
    return TRUE;
}
