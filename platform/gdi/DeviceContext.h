// The object behind the handle of a device context.
#pragma once

#include "GdiObjects.h"
#include "RecentLines.h"

#include <utility>

class CDC;

namespace gdi
{

// The selected object of one kind; initially a stock object.
template <class Object> class Selection
{
public:
    explicit Selection(Object& stock) : m_stock(stock), m_object(&stock) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() { m_object->Release(); }

    const Object* operator->() const { return m_object; }
    const Object& operator*() const { return *m_object; }
    HGDIOBJ Handle() const { return m_object->Handle(); }

    // Gives the previous object. If that was deleted while it was selected, it ends here, and the result is
    // the stock object.
    HGDIOBJ Replace(Object& object)
    {
        object.Hold();
        Object* const before = std::exchange(m_object, &object);
        return before->Release() ? before->Handle() : m_stock.Handle();
    }

private:
    Object& m_stock;
    Object* m_object;
};

class DeviceContext
{
public:
    // The clip box is in units of the grid.
    DeviceContext(const Surface& surface, const Box& clip, const PixelGrid& grid);
    DeviceContext(const DeviceContext&) = delete;
    DeviceContext& operator=(const DeviceContext&) = delete;
    ~DeviceContext();

    // Null if the object can't be selected.
    HGDIOBJ Select(GdiObject& object);

    // The stroke of the pen; the background mode decides on the gaps.
    Stroke PenStroke() const;

    // The framework's object for this context: the attached one, otherwise a temporary one, which is created
    // on first use and deleted with the context.
    CDC* Wrapper();
    void SetAttached(CDC* wrapper) { m_attached = wrapper; }
    void ForgetAttached(const CDC* wrapper);

    HDC Handle() { return reinterpret_cast<HDC>(this); }
    static DeviceContext* FromHandle(HDC handle) { return reinterpret_cast<DeviceContext*>(handle); }

    // Fills a box of units. A side of one unit is a line, as thick as any other.
    void FillUnits(const Box& units, Pixel ink) { Fill(PixelsOfStrip(units), ink); }
    Box PixelsOfStrip(const Box& units) const;

    // In pixels, clipped only when drawn.
    void Fill(const Box& box, Pixel ink)
    {
        Drawing.FillBox(box, ink);
        Drawn.Include(box);
    }

    Canvas Drawing; // in pixels
    PixelGrid Grid; // of the units that callers draw in
    Selection<Pen> SelectedPen{StockPen(BLACK_PEN)};
    Selection<Brush> SelectedBrush{StockBrush(WHITE_BRUSH)};
    Selection<Font> SelectedFont{StockFont()};
    Selection<Bitmap> SelectedBitmap{StockBitmap()};
    Selection<Palette> SelectedPalette{StockPalette()};
    COLORREF TextColor = RGB(0, 0, 0);
    COLORREF BackgroundColor = RGB(255, 255, 255);
    int BackgroundMode = OPAQUE;
    POINT Position{0, 0};
    Box Drawn = noBox; // holds all shapes since it was reset, in pixels, also where the clip box has cut them
    RecentLines Lines;

private:
    CDC* m_attached = nullptr;
    std::unique_ptr<CDC> m_wrapper;
};

// A context on pixels of the caller's, which have to outlive it. Nothing is drawn outside of the clip
// rectangle, which is in units of the grid. Null without memory. To be deleted by DeleteDC.
HDC CreateSurfaceDC(const Surface& surface, const RECT& clip, const PixelGrid& grid = {});

struct ContextEnd {
    using pointer = HDC;
    void operator()(HDC context) const { DeleteDC(context); }
};
using OwnedContext = std::unique_ptr<HDC__, ContextEnd>;

} // namespace gdi
