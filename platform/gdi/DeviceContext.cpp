#include "DeviceContext.h"

#include <afxdc.h>
#include <new>

namespace gdi
{

namespace
{

HDC MakeContext(const Surface& surface, const Box& clip, const PixelGrid& grid)
{
    auto* const context = new (std::nothrow) DeviceContext(surface, clip, grid);
    return context == nullptr ? nullptr : context->Handle();
}

// Sets a member and gives its previous value.
template <class Value> Value Exchange(HDC context, Value DeviceContext::*member, Value value, Value onFailure)
{
    if (context == nullptr)
        return onFailure;
    return std::exchange(DeviceContext::FromHandle(context)->*member, value);
}

template <class Value> Value Get(HDC context, Value DeviceContext::*member, Value onFailure)
{
    return context == nullptr ? onFailure : DeviceContext::FromHandle(context)->*member;
}

} // namespace

DeviceContext::DeviceContext(const Surface& surface, const Box& clip, const PixelGrid& grid)
    : Drawing(surface, grid.Pixels(clip)), Grid(grid)
{
}

DeviceContext::~DeviceContext()
{
    for (CDC* const wrapper : {m_attached, m_wrapper.get()}) {
        if (wrapper != nullptr)
            wrapper->m_hDC = nullptr;
    }
}

HGDIOBJ DeviceContext::Select(GdiObject& object)
{
    switch (object.ObjectKind()) {
    case Kind::Pen:
        return SelectedPen.Replace(static_cast<Pen&>(object));
    case Kind::Brush:
        return SelectedBrush.Replace(static_cast<Brush&>(object));
    case Kind::Font:
        return SelectedFont.Replace(static_cast<Font&>(object));
    case Kind::Bitmap: {
        auto& bitmap = static_cast<Bitmap&>(object);
        if (bitmap.IsHeld())
            return &*SelectedBitmap == &bitmap ? bitmap.Handle() : nullptr;
        const Surface pixels = bitmap.Pixels();
        Drawing = Canvas(pixels, {0, 0, pixels.Width, pixels.Height});
        Grid = bitmap.Grid();
        return SelectedBitmap.Replace(bitmap);
    }
    default:
        return nullptr; // SelectPalette is for palettes
    }
}

Stroke DeviceContext::PenStroke() const
{
    Stroke stroke = SelectedPen->ThinStroke();
    if (!stroke.IsSolid() && BackgroundMode == OPAQUE)
        stroke.Gap = ToPixel(BackgroundColor);
    stroke.Thickness = Grid.Thickness();
    stroke.Scale = Grid.Scale();
    return stroke;
}

Box DeviceContext::PixelsOfStrip(const Box& units) const
{
    Box pixels = Grid.Pixels(units);
    if (units.Right - units.Left == 1)
        pixels.Right = pixels.Left + Grid.Thickness();
    if (units.Bottom - units.Top == 1)
        pixels.Bottom = pixels.Top + Grid.Thickness();
    return pixels;
}

CDC* DeviceContext::Wrapper()
{
    if (m_attached != nullptr)
        return m_attached;
    if (!m_wrapper) {
        m_wrapper = std::make_unique<CDC>();
        m_wrapper->m_hDC = Handle();
    }
    return m_wrapper.get();
}

void DeviceContext::ForgetAttached(const CDC* wrapper)
{
    if (m_attached == wrapper)
        m_attached = nullptr;
}

HDC CreateSurfaceDC(const Surface& surface, const RECT& clip, const PixelGrid& grid)
{
    return MakeContext(surface, ToBox(clip), grid);
}

} // namespace gdi

using gdi::DeviceContext;

HDC CreateCompatibleDC(HDC /*context*/)
{
    return gdi::MakeContext({}, {0, 0, 0, 0}, {});
}

BOOL DeleteDC(HDC context)
{
    delete DeviceContext::FromHandle(context);
    return context == nullptr ? FALSE : TRUE;
}

int GetDeviceCaps(HDC /*context*/, int /*index*/)
{
    return 0;
}

HGDIOBJ SelectObject(HDC context, HGDIOBJ object)
{
    if (context == nullptr || object == nullptr)
        return nullptr;
    return DeviceContext::FromHandle(context)->Select(*gdi::GdiObject::FromHandle(object));
}

HPALETTE SelectPalette(HDC context, HPALETTE palette, BOOL /*forceBackground*/)
{
    auto* const object = dynamic_cast<gdi::Palette*>(gdi::GdiObject::FromHandle(palette));
    if (context == nullptr || object == nullptr)
        return nullptr;
    return static_cast<HPALETTE>(DeviceContext::FromHandle(context)->SelectedPalette.Replace(*object));
}

UINT RealizePalette(HDC /*context*/)
{
    return 0;
}

COLORREF SetTextColor(HDC context, COLORREF color)
{
    return gdi::Exchange(context, &DeviceContext::TextColor, color, CLR_INVALID);
}

COLORREF SetBkColor(HDC context, COLORREF color)
{
    return gdi::Exchange(context, &DeviceContext::BackgroundColor, color, CLR_INVALID);
}

int SetBkMode(HDC context, int mode)
{
    if (mode != TRANSPARENT && mode != OPAQUE)
        return 0;
    return gdi::Exchange(context, &DeviceContext::BackgroundMode, mode, 0);
}

COLORREF GetTextColor(HDC context)
{
    return gdi::Get(context, &DeviceContext::TextColor, CLR_INVALID);
}

COLORREF GetBkColor(HDC context)
{
    return gdi::Get(context, &DeviceContext::BackgroundColor, CLR_INVALID);
}

BOOL RectVisible(HDC context, LPCRECT rectangle)
{
    if (context == nullptr || rectangle == nullptr)
        return FALSE;
    const DeviceContext& target = *DeviceContext::FromHandle(context);
    const gdi::Box box = target.Grid.Pixels(gdi::ToBox(*rectangle));
    return box.Intersect(target.Drawing.Clip()).IsEmpty() ? FALSE : TRUE;
}

BOOL PtVisible(HDC context, int x, int y)
{
    if (context == nullptr)
        return FALSE;
    const DeviceContext& target = *DeviceContext::FromHandle(context);
    const gdi::Point pixel = target.Grid.Middle({x, y});
    return target.Drawing.Contains(pixel.X, pixel.Y) ? TRUE : FALSE;
}
