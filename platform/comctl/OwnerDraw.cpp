#include "OwnerDraw.h"

#include <DeviceContext.h>
#include <QtConvert.h>
#include <ScreenPixels.h>
#include <Window.h>
#include <winuser.h>

namespace
{

struct ItemColors {
    int Text; // a system colour's index
    int Background;
};

constexpr ItemColors ColorsOf(UINT kind)
{
    return kind == ODT_BUTTON ? ItemColors{COLOR_BTNTEXT, COLOR_BTNFACE}
                              : ItemColors{COLOR_WINDOWTEXT, COLOR_WINDOW};
}

} // namespace

void DrawByOwner(QPainter& painter, const QRect& place, Window& control, DRAWITEMSTRUCT item)
{
    Window* const parent = control.Parent();
    ScreenPixels pixels(painter, place);
    if (parent == nullptr || pixels.IsNull())
        return;
    const ItemColors colors = ColorsOf(item.CtlType);
    pixels.Fill(GetSysColor(colors.Background));

    item.rcItem = gdi::ToRect(QRect(QPoint(0, 0), place.size()));
    const gdi::OwnedContext context(pixels.CreateContext(item.rcItem));
    if (!context)
        return;
    SetTextColor(context.get(), GetSysColor(colors.Text));
    SetBkColor(context.get(), GetSysColor(colors.Background));
    if (control.Font() != nullptr)
        SelectObject(context.get(), control.Font());

    item.hwndItem = control.Handle();
    item.hDC = context.get();
    parent->SendContained(WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
    pixels.Show(painter, place.topLeft());
}
