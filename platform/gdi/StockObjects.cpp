// The stock objects.
#include "GdiObjects.h"

namespace gdi
{

namespace
{

// Never deleted: a context in a static object of the host may outlive every static object here.
template <class Object, class... Arguments> Object& Standing(Arguments... arguments)
{
    return *new Object(arguments...);
}

} // namespace

Pen& StockPen(int number)
{
    constexpr COLORREF black = 0;
    static Pen& solid = Standing<Pen>(PS_SOLID, 0, black, true);
    static Pen& null = Standing<Pen>(PS_NULL, 0, black, true);
    return number == NULL_PEN ? null : solid;
}

Brush& StockBrush(int number)
{
    static Brush& white = Standing<Brush>(ToPixel(RGB(255, 255, 255)), true);
    static Brush& null = Standing<Brush>(std::optional<Pixel>(), true);
    return number == NULL_BRUSH ? null : white;
}

Font& StockFont()
{
    static Font& font = Standing<Font>(LOGFONTW{}, true);
    return font;
}

Bitmap& StockBitmap()
{
    static Bitmap& bitmap = Standing<Bitmap>(1, 1, PixelGrid(), true);
    return bitmap;
}

Palette& StockPalette()
{
    static Palette& palette = Standing<Palette>(true);
    return palette;
}

} // namespace gdi

HGDIOBJ GetStockObject(int number)
{
    switch (number) {
    case WHITE_BRUSH:
    case NULL_BRUSH:
        return gdi::StockBrush(number).Handle();
    case BLACK_PEN:
    case NULL_PEN:
        return gdi::StockPen(number).Handle();
    case DEFAULT_GUI_FONT:
        return gdi::StockFont().Handle();
    default:
        return nullptr;
    }
}
