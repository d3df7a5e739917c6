// Painting of a tree, with the parent's custom draw.
#include "Tree.h"

#include <QPainter>
#include <QtConvert.h>
#include <ScreenPixels.h>
#include <algorithm>

namespace
{

// From the lines in its middle.
constexpr int buttonReach = 4;
constexpr int signReach = 2;

struct Colors {
    COLORREF Text;
    COLORREF Background;
};

COLORREF BackgroundColor(bool isEnabled)
{
    return GetSysColor(isEnabled ? COLOR_WINDOW : COLOR_BTNFACE);
}

Colors ColorsOf(bool isEnabled, bool isHighlighted)
{
    if (isHighlighted)
        return {GetSysColor(COLOR_HIGHLIGHTTEXT), GetSysColor(COLOR_HIGHLIGHT)};
    return {GetSysColor(isEnabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT), BackgroundColor(isEnabled)};
}

void DrawDots(const gdi::DeviceContext& dc, const QRect& line, gdi::Pixel ink)
{
    gdi::ForEachDot(dc.Drawing, dc.PixelsOfStrip(gdi::ToBox(line)), dc.Grid.Thickness(),
                    [ink](gdi::Pixel& pixel) { pixel = ink; });
}

// Limits the clip box of a context during its lifetime.
class ClipScope
{
public:
    ClipScope(gdi::DeviceContext& dc, const QRect& clip) : m_dc(dc), m_before(dc.Drawing)
    {
        m_dc.Drawing =
            gdi::Canvas(m_before.Target(), dc.Grid.Pixels(gdi::ToBox(clip)).Intersect(m_before.Clip()));
    }
    ClipScope(const ClipScope&) = delete;
    ClipScope& operator=(const ClipScope&) = delete;
    ~ClipScope() { m_dc.Drawing = m_before; }

private:
    gdi::DeviceContext& m_dc;
    gdi::Canvas m_before;
};

} // namespace

// WM_PAINT without a context. The parent's custom draw needs a context of the layer's here too.
void TreeWindow::paintEvent(QPaintEvent* /*event*/)
{
    const QRect part = Surface().PaintedPart();
    ScreenPixels pixels(*viewport(), part);
    if (pixels.IsNull())
        return;
    const gdi::OwnedContext context(pixels.CreateContext(gdi::ToRect(part)));
    if (!context)
        return;
    PaintInto(context.get());
    QPainter painter(viewport());
    pixels.Show(painter, QPoint(0, 0));
}

// A row that draws beyond its own place may cover its neighbours, and they cover it: then all are painted,
// whatever part is asked for, and none is cut.
void TreeWindow::PaintInto(HDC context)
{
    SelectObject(context, TextFont());
    const QRect part = Surface().PaintedPart();
    const bool paintsPart = !m_drawsBeyondRows;
    if (paintsPart && PaintRows(context, WholeRowsOf(part)))
        return;
    m_drawsBeyondRows = !PaintRows(context, viewport()->rect());
    if (paintsPart && !part.contains(ShownPart()))
        Surface().Invalidate(viewport()->rect(), true);
}

QRect TreeWindow::ShownPart() const
{
    return viewport()->visibleRegion().boundingRect();
}

// A part from end to end of the shown columns, and with whole rows: what is cut there is cut in each
// painting.
QRect TreeWindow::WholeRowsOf(const QRect& part) const
{
    const int rowHeight = RowHeight();
    const QRect shown = ShownPart().united(part);
    const int top = part.top() / rowHeight * rowHeight;
    const int bottom = (part.bottom() / rowHeight + 1) * rowHeight;
    return {shown.left(), top, shown.width(), bottom - top};
}

bool TreeWindow::PaintRows(HDC context, const QRect& part)
{
    gdi::DeviceContext& dc = *gdi::DeviceContext::FromHandle(context);
    const ClipScope clip(dc, part);
    dc.FillUnits(gdi::ToBox(part), gdi::ToPixel(BackgroundColor(isEnabled())));
    NMTVCUSTOMDRAW all{};
    const bool asks = (Ask(all, CDDS_PREPAINT) & CDRF_NOTIFYITEMDRAW) != 0;
    bool isWithin = true;
    for (const HTREEITEM row : RowsIn(part)) {
        if (TreeItem* const item = Find(row))
            isWithin = PaintRow(context, *item, asks) && isWithin;
    }
    return isWithin;
}

LRESULT TreeWindow::Ask(NMTVCUSTOMDRAW& draw, DWORD stage)
{
    draw.nmcd.dwDrawStage = stage;
    return Notify(draw.nmcd.hdr, NM_CUSTOMDRAW);
}

// As handles, because the parent may change any row during its custom draw.
std::vector<HTREEITEM> TreeWindow::RowsIn(const QRect& part) const
{
    std::vector<HTREEITEM> rows;
    const int end = std::min(part.bottom() + 1, viewport()->height());
    const auto* item = static_cast<const TreeItem*>(itemAt(0, part.top()));
    for (int top = part.top(); item != nullptr && top < end; top += RowHeight()) {
        rows.push_back(item->Handle());
        item = static_cast<const TreeItem*>(itemBelow(item));
    }
    return rows;
}

NMTVCUSTOMDRAW TreeWindow::Describe(HDC context, const TreeItem& item) const
{
    const bool isSelected = item.isSelected();
    const bool hasFocus = this->hasFocus();
    const Colors colors = ColorsOf(isEnabled(), isSelected && hasFocus);
    NMTVCUSTOMDRAW draw{};
    draw.nmcd.hdc = context;
    draw.nmcd.rc = gdi::ToRect(RowOf(item));
    draw.nmcd.dwItemSpec = reinterpret_cast<UINT_PTR>(item.Handle());
    draw.nmcd.uItemState =
        (isSelected ? CDIS_SELECTED : 0) | (hasFocus && &item == currentItem() ? CDIS_FOCUS : 0);
    draw.clrText = colors.Text;
    draw.clrTextBk = colors.Background;
    return draw;
}

bool TreeWindow::PaintRow(HDC context, TreeItem& row, bool asks)
{
    gdi::DeviceContext& dc = *gdi::DeviceContext::FromHandle(context);
    dc.Drawn = gdi::noBox;
    NMTVCUSTOMDRAW draw = Describe(context, row);
    const LRESULT answer = asks ? Ask(draw, CDDS_ITEMPREPAINT) : CDRF_DODEFAULT;
    const TreeItem* const item = Find(reinterpret_cast<HTREEITEM>(draw.nmcd.dwItemSpec));
    if (item == nullptr)
        return true;
    const Places places = PlacesOf(*item);
    if ((Style & TVS_HASLINES) != 0)
        DrawLines(dc, *item, places.Branch);
    if (HasButton(*item))
        DrawButton(dc, *item, places.Branch);
    DrawLabel(draw, *item, places);
    if ((answer & CDRF_NOTIFYPOSTPAINT) != 0)
        Ask(draw, CDDS_ITEMPOSTPAINT);
    const gdi::Box place = dc.Grid.Pixels(gdi::ToBox(places.Row));
    return dc.Drawn.Top >= place.Top && dc.Drawn.Bottom <= place.Bottom;
}

// From the label to the vertical line, up to the previous row and down to the next sibling; further left, the
// vertical lines of the parents.
void TreeWindow::DrawLines(const gdi::DeviceContext& dc, const TreeItem& item, QRect square) const
{
    const gdi::Pixel ink = gdi::ToPixel(GetSysColor(COLOR_BTNSHADOW));
    const TreeItem* row = &item;
    for (; row != nullptr && !square.isEmpty() && square.left() >= 0; row = row->Parent()) {
        const QPoint middle = square.center();
        QRect line(middle.x(), square.top(), 1, square.height());
        if (row->Sibling(1) == nullptr)
            line.setBottom(row == &item ? middle.y() : line.top() - 1);
        if (row == &item) {
            DrawDots(dc, QRect(middle, QPoint(square.right(), middle.y())), ink);
            if (row == topLevelItem(0))
                line.setTop(middle.y());
        }
        DrawDots(dc, line, ink);
        square.translate(-square.width(), 0);
    }
}

void TreeWindow::DrawButton(const gdi::DeviceContext& dc, const TreeItem& item, const QRect& square) const
{
    const gdi::Box middle = dc.PixelsOfStrip(gdi::ToBox(QRect(square.center(), QSize(1, 1))));
    const auto fill = [&](std::int64_t across, std::int64_t down, int color) {
        dc.Drawing.FillBox(
            {middle.Left - across, middle.Top - down, middle.Right + across, middle.Bottom + down},
            gdi::ToPixel(GetSysColor(color)));
    };
    const std::int64_t edge = dc.Grid.Length(buttonReach);
    const std::int64_t within = edge - dc.Grid.Thickness();
    const std::int64_t sign = dc.Grid.Length(signReach);
    fill(edge, edge, COLOR_BTNSHADOW);
    fill(within, within, COLOR_WINDOW);
    fill(sign, 0, COLOR_WINDOWTEXT);
    if (!item.IsExpanded())
        fill(0, sign, COLOR_WINDOWTEXT);
}

void TreeWindow::DrawLabel(const NMTVCUSTOMDRAW& draw, const TreeItem& item, const Places& places) const
{
    const HDC context = draw.nmcd.hdc;
    QRect label = places.Label;
    if ((Style & TVS_FULLROWSELECT) != 0)
        label.setRight(places.Row.right());
    gdi::DeviceContext::FromHandle(context)->FillUnits(gdi::ToBox(label), gdi::ToPixel(draw.clrTextBk));

    const QString& text = item.Text();
    RECT place = gdi::ToRect(label);
    InflateRect(&place, -labelPadding, 0);
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, draw.clrText);
    DrawTextW(context, gdi::ToView(text).data(), static_cast<int>(text.size()), &place,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    place = gdi::ToRect(label);
    if ((draw.nmcd.uItemState & CDIS_FOCUS) != 0)
        DrawFocusRect(context, &place);
}
