// Geometry and scrolling of a tree.
#include "Tree.h"

#include <FontTexts.h>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace
{

constexpr int branchWidth = 19;
constexpr int rowPadding = 3; // above and below the text together
constexpr int minRowHeight = 16;

} // namespace

// Even, so that dotted lines continue in the next row.
int TreeWindow::RowHeight() const
{
    return (std::max(gdi::FontTexts::Of(TextFont())->Height() + rowPadding, minRowHeight) + 1) / 2 * 2;
}

QRect TreeWindow::RowOf(const TreeItem& item) const
{
    const QRect shown = visualRect(indexFromItem(&item));
    return shown.height() > 0 ? QRect(0, shown.top(), viewport()->width(), shown.height()) : QRect();
}

TreeWindow::Places TreeWindow::PlacesOf(const TreeItem& item) const
{
    const QRect row = RowOf(item);
    if (row.height() <= 0)
        return {};
    const bool hasBranches = (Style & (TVS_HASLINES | TVS_HASBUTTONS)) != 0;
    const bool isRootInset = hasBranches && (Style & TVS_LINESATROOT) != 0;
    const int left = (item.Level() + (isRootInset ? 1 : 0)) * branchWidth;
    const int width = gdi::FontTexts::Of(TextFont())->Width(item.Text()) + 2 * labelPadding;
    const int branch = left > 0 ? branchWidth : 0;
    return {row, {left - branch, row.top(), branch, row.height()}, {left, row.top(), width, row.height()}};
}

bool TreeWindow::HasButton(const TreeItem& item) const
{
    return item.childCount() > 0 && (Style & TVS_HASBUTTONS) != 0 &&
           (item.Parent() != nullptr || (Style & TVS_LINESATROOT) != 0);
}

TreeWindow::Hit TreeWindow::HitTest(QPoint point) const
{
    TreeItem* const item =
        viewport()->rect().contains(point) ? static_cast<TreeItem*>(itemAt(point)) : nullptr;
    if (item == nullptr)
        return {nullptr, TVHT_NOWHERE};
    const Places places = PlacesOf(*item);
    if (places.Label.contains(point))
        return {item, TVHT_ONITEMLABEL};
    if (point.x() >= places.Label.left())
        return {item, TVHT_ONITEMRIGHT};
    return {item, places.Branch.contains(point) && HasButton(*item) ? TVHT_ONITEMBUTTON : TVHT_ONITEMINDENT};
}

bool TreeWindow::GetRect(RECT& rectangle, bool isLabel) const
{
    HTREEITEM handle = nullptr; // the message passes it in the rectangle
    std::memcpy(&handle, &rectangle, sizeof(HTREEITEM));
    const TreeItem* const item = Find(handle);
    const Places places = item != nullptr ? PlacesOf(*item) : Places{};
    if (places.Row.height() <= 0)
        return false;
    rectangle = gdi::ToRect(isLabel ? places.Label : places.Row);
    return true;
}

bool TreeWindow::Reveal(HTREEITEM handle, ScrollHint hint)
{
    // The parent may change any row at each notification.
    std::vector<HTREEITEM> above;
    const TreeItem* const wanted = Find(handle);
    for (const TreeItem* item = wanted != nullptr ? wanted->Parent() : nullptr; item != nullptr;
         item = item->Parent())
        above.push_back(item->Handle());
    for (auto each = above.rbegin(); each != above.rend(); ++each) {
        if (TreeItem* const item = Find(*each))
            Expand(*item, TVE_EXPAND);
    }
    TreeItem* const item = Find(handle);
    if (item == nullptr)
        return false;
    UpdateLayout();
    if (hint != EnsureVisible || hasAutoScroll() || !RowOf(*item).intersects(viewport()->rect()))
        scrollToItem(item, hint);
    return true;
}

// Qt would postpone it to the end of the event, or until the window is shown.
void TreeWindow::UpdateLayout()
{
    executeDelayedItemsLayout();
    if (!viewport()->isVisible())
        updateGeometries();
    setViewportMargins(0, 0, 0, 0); // shows or hides the bar
}

bool TreeWindow::ScrollInfo(int bar, SCROLLINFO& info) const
{
    if (bar != SB_VERT)
        return false;
    const QScrollBar& vertical = *verticalScrollBar();
    if (m_delay) {
        const int page = std::max(1, viewport()->height() / RowHeight());
        info.nMax = m_delay->Rows > page ? m_delay->Rows - 1 : 0;
        info.nPage = static_cast<UINT>(page);
        info.nPos = std::min(vertical.value(), std::max(0, m_delay->Rows - page));
        return true;
    }
    const_cast<TreeWindow&>(*this).UpdateLayout(); // would happen later anyway
    info.nMax = vertical.maximum() > 0 ? vertical.maximum() + vertical.pageStep() - 1 : 0;
    info.nPage = static_cast<UINT>(vertical.pageStep());
    info.nPos = vertical.value();
    return true;
}

// Moves the pixels that stay in view where the moved rows equal newly painted ones: row heights are even, so
// the dots stay in step; at a broken scale rows differ.
void TreeWindow::scrollContentsBy(int /*dx*/, int rows)
{
    QToolTip::hideText(); // its row is elsewhere now
    const int distance = rows * RowHeight();
    const bool isWholeScale = devicePixelRatio() == std::floor(devicePixelRatio());
    if (!m_drawsBeyondRows && isWholeScale && std::abs(distance) < viewport()->height())
        viewport()->scroll(0, distance);
    else
        Surface().Invalidate(viewport()->rect(), true);
}
