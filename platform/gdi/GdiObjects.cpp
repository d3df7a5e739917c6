#include "GdiObjects.h"

#include "DashPattern.h"
#include "DeviceContext.h"

#include <afxgdi.h>
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

namespace gdi
{

namespace
{

constexpr int maxBitmapSide = 32767;
constexpr std::int64_t maxBitmapPixels = std::int64_t{1} << 26;
constexpr std::int64_t maxPenWidth = std::int64_t{1} << 20;

std::atomic<int> liveObjects = 0;

template <class Object, class... Arguments> Object* Make(Arguments... arguments)
{
    if (LiveObjects() >= objectLimit)
        return nullptr;
    try {
        return new Object(arguments...);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

template <class Handle> Handle HandleOf(GdiObject* object)
{
    return object == nullptr ? nullptr : static_cast<Handle>(object->Handle());
}

std::unique_ptr<CGdiObject> MakeWrapper(Kind kind)
{
    switch (kind) {
    case Kind::Pen:
        return std::make_unique<CPen>();
    case Kind::Brush:
        return std::make_unique<CBrush>();
    case Kind::Font:
        return std::make_unique<CFont>();
    case Kind::Bitmap:
        return std::make_unique<CBitmap>();
    default:
        return std::make_unique<CPalette>();
    }
}

} // namespace

int LiveObjects()
{
    return liveObjects.load(std::memory_order_relaxed);
}

// The wrapper of a stock object is created now, because threads share the object.
GdiObject::GdiObject(Kind kind, bool isStock)
    : m_kind(kind), m_isStock(isStock), m_wrapper(isStock ? NewWrapper() : nullptr)
{
    if (!isStock)
        liveObjects.fetch_add(1, std::memory_order_relaxed);
}

GdiObject::~GdiObject()
{
    for (CGdiObject* const wrapper : {m_attached, m_wrapper.get()}) {
        if (wrapper != nullptr)
            wrapper->m_hObject = nullptr;
    }
    if (!m_isStock)
        liveObjects.fetch_sub(1, std::memory_order_relaxed);
}

bool GdiObject::Release()
{
    if (m_isStock)
        return true;
    --m_holders;
    if (!m_isDeleted || m_holders > 0)
        return true;
    delete this;
    return false;
}

void GdiObject::Delete()
{
    if (m_isStock)
        return;
    m_isDeleted = true;
    if (m_holders == 0)
        delete this;
}

CGdiObject* GdiObject::Wrapper()
{
    if (m_attached != nullptr)
        return m_attached;
    if (!m_wrapper)
        m_wrapper = NewWrapper();
    return m_wrapper.get();
}

std::unique_ptr<CGdiObject> GdiObject::NewWrapper()
{
    std::unique_ptr<CGdiObject> wrapper = MakeWrapper(m_kind);
    wrapper->m_hObject = Handle();
    return wrapper;
}

void GdiObject::ForgetAttached(const CGdiObject* wrapper)
{
    if (m_attached == wrapper)
        m_attached = nullptr;
}

Pen::Pen(int style, int width, COLORREF color, bool isStock)
    : GdiObject(Kind::Pen, isStock), m_isNull(style == PS_NULL),
      m_width(std::min(std::abs(std::int64_t{width}), maxPenWidth))
{
    m_stroke.Ink = ToPixel(color);
    if (const DashPattern* const pattern = FindDashPattern(style)) {
        m_stroke.Dashes = pattern->Bits();
        m_stroke.Period = pattern->Period();
    }
}

Bitmap::Bitmap(int width, int height, const PixelGrid& grid, bool isStock)
    : GdiObject(Kind::Bitmap, isStock), m_width(width), m_height(height), m_grid(grid),
      m_pixels(std::make_unique_for_overwrite<Pixel[]>(static_cast<std::size_t>(width) *
                                                       static_cast<std::size_t>(height)))
{
}

Surface Bitmap::Pixels() const
{
    return IsStock() ? Surface{} : Surface{m_pixels.get(), m_width, m_height, m_width};
}

} // namespace gdi

HPEN CreatePen(int style, int width, COLORREF color)
{
    return gdi::HandleOf<HPEN>(gdi::Make<gdi::Pen>(style, width, color));
}

HBRUSH CreateSolidBrush(COLORREF color)
{
    return gdi::HandleOf<HBRUSH>(gdi::Make<gdi::Brush>(gdi::ToPixel(color)));
}

HFONT CreateFontIndirectW(const LOGFONTW* font)
{
    return font == nullptr ? nullptr : gdi::HandleOf<HFONT>(gdi::Make<gdi::Font>(*font));
}

HBITMAP CreateCompatibleBitmap(HDC context, int width, int height)
{
    if (context == nullptr || width <= 0 || height <= 0 || width > gdi::maxBitmapSide ||
        height > gdi::maxBitmapSide)
        return nullptr;
    const gdi::PixelGrid& grid = gdi::DeviceContext::FromHandle(context)->Grid;
    const std::int64_t pixelWidth = grid.X(width);
    const std::int64_t pixelHeight = grid.Y(height);
    if (pixelWidth * pixelHeight > gdi::maxBitmapPixels)
        return nullptr;
    return gdi::HandleOf<HBITMAP>(
        gdi::Make<gdi::Bitmap>(static_cast<int>(pixelWidth), static_cast<int>(pixelHeight), grid));
}

HPALETTE CreatePalette(const LOGPALETTE* palette)
{
    return palette == nullptr ? nullptr : gdi::HandleOf<HPALETTE>(gdi::Make<gdi::Palette>());
}

int GetObjectW(HGDIOBJ object, int size, void* buffer)
{
    const auto* const font = dynamic_cast<gdi::Font*>(gdi::GdiObject::FromHandle(object));
    if (font == nullptr || buffer == nullptr || size < static_cast<int>(sizeof(LOGFONTW)))
        return 0;
    *static_cast<LOGFONTW*>(buffer) = font->Wanted();
    return sizeof(LOGFONTW);
}

BOOL DeleteObject(HGDIOBJ object)
{
    if (object == nullptr)
        return FALSE;
    gdi::GdiObject::FromHandle(object)->Delete();
    return TRUE;
}
