// What the handle of a device context stands for.
#pragma once

#include "GdiObjects.h"

#include <utility>

class CDC;

namespace gdi
{

// The object of one kind that a context has selected; a stock object at first.
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

    // Gives the one before; if that has been deleted meanwhile, and so ends here, the stock object.
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
    DeviceContext(const Surface& surface, const Box& clip);
    DeviceContext(const DeviceContext&) = delete;
    DeviceContext& operator=(const DeviceContext&) = delete;
    ~DeviceContext();

    // Null when the object can't be selected.
    HGDIOBJ Select(GdiObject& object);

    // The strokes of its pen, with the gaps as the background mode wants them.
    Stroke PenStroke() const;

    // The framework's object for this context: the attached one, else one made on first need that ends with
    // this.
    CDC* Wrapper();
    void SetAttached(CDC* wrapper) { m_attached = wrapper; }
    void ForgetAttached(const CDC* wrapper);

    HDC Handle() { return reinterpret_cast<HDC>(this); }
    static DeviceContext* FromHandle(HDC handle) { return reinterpret_cast<DeviceContext*>(handle); }

    Canvas Drawing;
    Selection<Pen> SelectedPen{StockPen(BLACK_PEN)};
    Selection<Brush> SelectedBrush{StockBrush(WHITE_BRUSH)};
    Selection<Font> SelectedFont{StockFont()};
    Selection<Bitmap> SelectedBitmap{StockBitmap()};
    Selection<Palette> SelectedPalette{StockPalette()};
    COLORREF TextColor = RGB(0, 0, 0);
    COLORREF BackgroundColor = RGB(255, 255, 255);
    int BackgroundMode = OPAQUE;
    POINT Position{0, 0};

private:
    CDC* m_attached = nullptr;
    std::unique_ptr<CDC> m_wrapper;
};

// A context on somebody else's pixels, which have to outlive it; what is drawn stays within the clip
// rectangle. Null when there is no memory for it. DeleteDC ends it.
HDC CreateSurfaceDC(const Surface& surface, const RECT& clip);

struct ContextEnd {
    using pointer = HDC;
    void operator()(HDC context) const { DeleteDC(context); }
};
using OwnedContext = std::unique_ptr<HDC__, ContextEnd>;

} // namespace gdi
