// Expansion and the mouse of a tree, and the notifications of its parent.
#include "ScrollBar.h"
#include "Tree.h"
#include "TreeTable.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <utility>

void TreeWindow::NotifyExpanded(const TreeItem& item, WPARAM code)
{
    NMTREEVIEWW notification{};
    notification.action = static_cast<UINT>(code);
    notification.itemNew.hItem = item.Handle();
    Notify(notification.hdr, TVN_ITEMEXPANDEDW);
}

bool TreeWindow::Expand(TreeItem& item, WPARAM code)
{
    const bool expands = code == TVE_EXPAND;
    if ((!expands && code != TVE_COLLAPSE) || item.childCount() == 0 || item.IsExpanded() == expands)
        return false;
    const int collapsed = m_delay && item.IsShown() ? item.ExpandedBelow() : 0;
    SetExpanded(item, expands);
    if (m_delay && item.IsShown())
        m_delay->Rows += expands ? item.ExpandedBelow() : -collapsed;
    NotifyExpanded(item, code);
    return true;
}

// A selected row below a collapsed one would be invisible.
void TreeWindow::SetExpanded(TreeItem& item, bool isExpanded)
{
    item.SetExpanded(isExpanded);
    if (const TreeItem* const caret = Caret(); !isExpanded && caret != nullptr && caret->IsBelow(item))
        setCurrentItem(&item);
}

void TreeWindow::ExpandBelow(TreeItem& item)
{
    std::vector<HTREEITEM> rows{item.Handle()};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        TreeItem* const row = Find(rows[i]); // the parent may change any row at each notification
        if (row == nullptr)
            continue;
        for (int child = 0; child < row->childCount(); ++child)
            rows.push_back(static_cast<const TreeItem*>(row->child(child))->Handle());
        Expand(*row, TVE_EXPAND);
    }
}

bool TreeWindow::ExpandInPlace(HTREEITEM handle, WPARAM code)
{
    TreeItem* const item = Find(handle);
    if (item == nullptr)
        return false;
    if (!updatesEnabled()) {
        if (!m_delay) {
            UpdateLayout();
            m_delay = {PlaceToKeep(), RowCount()};
        }
        scheduleDelayedItemsLayout(); // Qt itself counts on that for each row it expands
        return Expand(*item, code);
    }
    const KeptPlace kept = PlaceToKeep();
    if (!Expand(*item, code))
        return false;
    UpdateLayout();
    Restore(kept);
    return true;
}

TreeWindow::KeptPlace TreeWindow::PlaceToKeep() const
{
    const TreeItem* kept = ShownParent(TreeTable(const_cast<TreeWindow&>(*this)).Selected().Row);
    if (kept == nullptr || !viewport()->rect().intersects(RowOf(*kept)))
        kept = FirstVisible();
    return kept != nullptr ? KeptPlace{kept->Handle(), RowOf(*kept).top()} : KeptPlace{};
}

void TreeWindow::Restore(const KeptPlace& kept)
{
    if (const TreeItem* const row = ShownParent(Find(kept.Row)))
        verticalScrollBar()->setValue(verticalScrollBar()->value() +
                                      (RowOf(*row).top() - kept.Top) / RowHeight());
}

void TreeWindow::doItemsLayout()
{
    const std::optional<Delay> delay = std::exchange(m_delay, std::nullopt);
    QTreeWidget::doItemsLayout();
    if (delay)
        Restore(delay->Kept);
}

void TreeWindow::EndDelay()
{
    if (m_delay)
        UpdateLayout();
}

int TreeWindow::RowCount() const
{
    int count = topLevelItemCount();
    for (int i = 0; i < topLevelItemCount(); ++i)
        count += static_cast<const TreeItem*>(topLevelItem(i))->ExpandedBelow();
    return count;
}

// ---- The mouse
//
// Qt's own handling would select anywhere in a row, and during a drag.

// The menu comes at the release of the right button, not at the press. A press doesn't scroll to the selected
// row: that would move it away from the mouse.
bool TreeWindow::viewportEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::ContextMenu:
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const QPointer<QWidget> tree(this); // a handler's event loop may delete it
        ReportFocus(false);
        setAutoScroll(false);
        const bool result = ScrollAreaWindow::viewportEvent(event);
        if (!tree.isNull())
            setAutoScroll(true);
        return result;
    }
    default:
        return ScrollAreaWindow::viewportEvent(event);
    }
}

bool TreeWindow::Selects(UINT flags) const
{
    const UINT places = (Style & TVS_FULLROWSELECT) != 0
                            ? TVHT_ONITEMLABEL | TVHT_ONITEMRIGHT | TVHT_ONITEMINDENT
                            : TVHT_ONITEMLABEL;
    return (flags & places) != 0;
}

void TreeWindow::mousePressEvent(QMouseEvent* event)
{
    const Hit hit = HitTest(event->position().toPoint());
    if (event->button() != Qt::LeftButton)
        return;
    if (hit.Flags == TVHT_ONITEMBUTTON)
        Toggle(*hit.Item);
    else if (Selects(hit.Flags))
        setCurrentItem(hit.Item);
}

void TreeWindow::mouseDoubleClickEvent(QMouseEvent* event)
{
    const Hit hit = HitTest(event->position().toPoint());
    if (event->button() == Qt::LeftButton && (hit.Flags == TVHT_ONITEMBUTTON || Selects(hit.Flags)))
        Toggle(*hit.Item);
}

void TreeWindow::mouseMoveEvent(QMouseEvent* /*event*/) {}

void TreeWindow::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::RightButton || !viewport()->rect().contains(event->position().toPoint()))
        return;
    NMHDR notification{};
    if (Notify(notification, NM_RCLICK) == 0)
        SendContained(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Handle()),
                      gdi::ToLParam(event->globalPosition().toPoint()));
}

QRect TreeWindow::ToolTipPlaceAt(QPoint point)
{
    const auto* const row = static_cast<const TreeItem*>(itemAt(point));
    return row != nullptr ? RowOf(*row) : QRect();
}

void TreeWindow::wheelEvent(QWheelEvent* event)
{
    if (!ScrollBarWindow::TakeWheel(*this, *event))
        ScrollAreaWindow::wheelEvent(event);
}
