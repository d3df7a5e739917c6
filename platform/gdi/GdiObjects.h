// The objects behind the handles of pens, brushes, fonts, bitmaps and palettes.
#pragma once

#include "PixelGrid.h"
#include "Rasteriser.h"

#include <memory>
#include <windows.h>

class CGdiObject;

namespace gdi
{

constexpr int objectLimit = 10000;
constexpr std::int64_t coordinateLimit = std::int64_t{1} << 27;

enum class Kind { Pen, Brush, Font, Bitmap, Palette };

// Counts against objectLimit, unless it is a stock object.
class GdiObject
{
public:
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;
    virtual ~GdiObject();

    Kind ObjectKind() const { return m_kind; }
    bool IsStock() const { return m_isStock; }

    // Reference counting: a context holds its selected objects. A deleted object ends with its last holder;
    // Release gives false then.
    void Hold() { m_holders += m_isStock ? 0 : 1; }
    bool Release();
    void Delete();
    bool IsHeld() const { return m_holders > 0; }

    // The framework's object for this handle: the attached one, otherwise a temporary one, which is created
    // on first use and deleted with this.
    CGdiObject* Wrapper();
    void SetAttached(CGdiObject* wrapper) { m_attached = wrapper; }
    void ForgetAttached(const CGdiObject* wrapper);

    HGDIOBJ Handle() { return this; }
    static GdiObject* FromHandle(HGDIOBJ handle) { return static_cast<GdiObject*>(handle); }

protected:
    GdiObject(Kind kind, bool isStock);

private:
    std::unique_ptr<CGdiObject> NewWrapper();

    Kind m_kind;
    bool m_isStock;
    bool m_isDeleted = false;
    int m_holders = 0;
    CGdiObject* m_attached = nullptr;
    std::unique_ptr<CGdiObject> m_wrapper;
};

class Pen : public GdiObject
{
public:
    Pen(int style, int width, COLORREF color, bool isStock = false);

    bool IsNull() const { return m_isNull; }
    bool IsWide() const { return m_width > 1; }
    std::int64_t Width() const { return m_width; }
    Pixel Ink() const { return m_stroke.Ink; }
    const Stroke& ThinStroke() const { return m_stroke; } // without a gap colour

private:
    bool m_isNull;
    std::int64_t m_width;
    Stroke m_stroke;
};

class Brush : public GdiObject
{
public:
    explicit Brush(std::optional<Pixel> ink, bool isStock = false)
        : GdiObject(Kind::Brush, isStock), m_ink(ink)
    {
    }
    std::optional<Pixel> Ink() const { return m_ink; } // none for the null brush

private:
    std::optional<Pixel> m_ink;
};

class Font : public GdiObject
{
public:
    explicit Font(const LOGFONTW& wanted, bool isStock = false)
        : GdiObject(Kind::Font, isStock), m_wanted(wanted)
    {
    }
    const LOGFONTW& Wanted() const { return m_wanted; }

private:
    LOGFONTW m_wanted;
};

class Bitmap : public GdiObject
{
public:
    // In pixels. Raises std::bad_alloc.
    Bitmap(int width, int height, const PixelGrid& grid, bool isStock = false);

    // Empty for the stock bitmap, which is initially selected in memory contexts.
    Surface Pixels() const;
    const PixelGrid& Grid() const { return m_grid; }

private:
    int m_width;
    int m_height;
    PixelGrid m_grid;
    std::unique_ptr<Pixel[]> m_pixels;
};

class Palette : public GdiObject
{
public:
    explicit Palette(bool isStock = false) : GdiObject(Kind::Palette, isStock) {}
};

// The stock objects.
Pen& StockPen(int number);
Brush& StockBrush(int number);
Font& StockFont();
Bitmap& StockBitmap();
Palette& StockPalette();

// The number of objects that have to be deleted.
int LiveObjects();

} // namespace gdi
