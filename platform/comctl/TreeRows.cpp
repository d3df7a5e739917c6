// The messages about the rows of a tree.
#include "Tree.h"

#include <TextCopy.h>

namespace
{

bool IsRoot(HTREEITEM handle)
{
    return handle == nullptr || handle == TVI_ROOT;
}

HTREEITEM HandleOf(const QTreeWidgetItem* item)
{
    return item != nullptr ? static_cast<const TreeItem*>(item)->Handle() : nullptr;
}

void SetContents(TreeItem& row, const TVITEMW& item)
{
    if ((item.mask & TVIF_TEXT) != 0)
        row.SetText(gdi::ToQString(item.pszText));
    if ((item.mask & TVIF_PARAM) != 0)
        row.Data = item.lParam;
}

} // namespace

HTREEITEM TreeWindow::Insert(const TVINSERTSTRUCTW& row)
{
    TreeItem* const parent = Find(row.hParent);
    if (parent == nullptr && !IsRoot(row.hParent))
        return nullptr;
    EndDelay();
    auto* const item = new TreeItem(m_handles);
    SetContents(*item, row.item); // before the view knows the row
    if (parent != nullptr)
        parent->Append(*item);
    else
        addTopLevelItem(item);
    SetState(*item, row.item);
    return item->Handle();
}

bool TreeWindow::Delete(HTREEITEM handle)
{
    EndDelay();
    if (IsRoot(handle)) {
        clear();
        return true;
    }
    TreeItem* const item = Find(handle);
    if (item == nullptr)
        return false;
    delete item;
    return true;
}

bool TreeWindow::Get(TVITEMW& item) const
{
    const TreeItem* const row = Find(item.hItem);
    if (row == nullptr)
        return false;
    if ((item.mask & TVIF_TEXT) != 0 && item.pszText != nullptr && item.cchTextMax > 0)
        CopyText(gdi::ToView(row->Text()), item.pszText, static_cast<std::size_t>(item.cchTextMax));
    if ((item.mask & TVIF_PARAM) != 0)
        item.lParam = row->Data;
    if ((item.mask & TVIF_STATE) != 0)
        item.state = StateOf(*row) & item.stateMask;
    if ((item.mask & TVIF_CHILDREN) != 0)
        item.cChildren = row->childCount() > 0 ? 1 : 0;
    return true;
}

// Without notifications, which are for actions of the user.
bool TreeWindow::Set(const TVITEMW& item)
{
    TreeItem* const row = Find(item.hItem);
    if (row == nullptr)
        return false;
    SetContents(*row, item);
    SetState(*row, item);
    return true;
}

void TreeWindow::SetState(TreeItem& row, const TVITEMW& item)
{
    if ((item.mask & TVIF_STATE) == 0)
        return;
    if ((item.stateMask & TVIS_EXPANDED) != 0)
        SetExpanded(row, (item.state & TVIS_EXPANDED) != 0);
}

UINT TreeWindow::StateOf(const TreeItem& item) const
{
    return (item.isSelected() ? TVIS_SELECTED : 0) | (item.IsExpanded() ? TVIS_EXPANDED : 0);
}

// ---- Relations

HTREEITEM TreeWindow::Next(HTREEITEM handle, WPARAM relation) const
{
    switch (relation) {
    case TVGN_ROOT:
        return HandleOf(topLevelItem(0));
    case TVGN_FIRSTVISIBLE:
        return HandleOf(FirstVisible());
    case TVGN_CARET:
        return HandleOf(currentItem());
    default:
        break;
    }
    const TreeItem* const item = Find(handle);
    if (item == nullptr)
        return relation == TVGN_CHILD && IsRoot(handle) ? HandleOf(topLevelItem(0)) : nullptr;
    switch (relation) {
    case TVGN_NEXT:
        return HandleOf(item->Sibling(1));
    case TVGN_PARENT:
        return HandleOf(item->Parent());
    case TVGN_CHILD:
        return HandleOf(item->child(0));
    case TVGN_NEXTVISIBLE:
        return RowOf(*item).isEmpty() ? nullptr : HandleOf(itemBelow(item));
    case TVGN_PREVIOUSVISIBLE:
        return RowOf(*item).isEmpty() ? nullptr : HandleOf(itemAbove(item));
    default:
        return nullptr;
    }
}

bool TreeWindow::Select(HTREEITEM handle, WPARAM relation)
{
    if (relation == TVGN_FIRSTVISIBLE)
        return Reveal(handle, PositionAtTop);
    if (relation != TVGN_CARET)
        return false;
    if (handle == nullptr) {
        m_lastCaret = Caret() != nullptr ? Caret()->Handle() : m_lastCaret;
        selectionModel()->clear();
        return true;
    }
    const bool isThere = Reveal(handle, EnsureVisible);
    if (isThere)
        setCurrentItem(Find(handle));
    return isThere;
}
