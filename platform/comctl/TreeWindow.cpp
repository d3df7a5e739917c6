// What a tree is told by messages.
#include "TreeWindow.h"

#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QtConvert.h>
#include <algorithm>

namespace
{

class RowDelegate : public QStyledItemDelegate
{
public:
    explicit RowDelegate(TreeWindow& tree) : QStyledItemDelegate(&tree), m_tree(tree) {}

    QSize sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const override
    {
        return {0, m_tree.RowHeight()};
    }

private:
    TreeWindow& m_tree;
};

// As wide as all windows have been told that such a bar is.
class VerticalBar : public QScrollBar
{
public:
    explicit VerticalBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {}

    QSize sizeHint() const override
    {
        return {GetSystemMetrics(SM_CXVSCROLL), QScrollBar::sizeHint().height()};
    }
};

HTREEITEM ToHandle(LPARAM lParam)
{
    return reinterpret_cast<HTREEITEM>(lParam);
}

bool IsRoot(HTREEITEM handle)
{
    return handle == nullptr || handle == TVI_ROOT;
}

HTREEITEM HandleOf(const QTreeWidgetItem* item)
{
    return item != nullptr ? static_cast<const TreeItem*>(item)->Handle() : nullptr;
}

} // namespace

WindowSide& MakeTree(DWORD style, QWidget* parent)
{
    return *new TreeWindow(style, parent);
}

TreeWindow::TreeWindow(DWORD style, QWidget* parent) : ScrollAreaWindow(parent)
{
    Style = style;
    setFrameShape(QFrame::NoFrame);
    setLayoutDirection(Qt::LeftToRight);
    setHeaderHidden(true);
    setIndentation(0); // a row is Qt's from its left end on: lines, button and label are drawn here
    setItemDelegate(new RowDelegate(*this));
    setUniformRowHeights(true);
    setVerticalScrollBar(new VerticalBar(this));
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    setFocusPolicy((style & WS_TABSTOP) != 0 ? Qt::StrongFocus : Qt::ClickFocus);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

LRESULT TreeWindow::OnDefault(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case TVM_INSERTITEMW:
        return reinterpret_cast<LRESULT>(Insert(*reinterpret_cast<const TVINSERTSTRUCTW*>(lParam)));
    case TVM_DELETEITEM:
        return Delete(ToHandle(lParam)) ? TRUE : FALSE;
    case TVM_GETITEMW:
        return Get(*reinterpret_cast<TVITEMW*>(lParam)) ? TRUE : FALSE;
    case TVM_SETITEMW:
        return Set(*reinterpret_cast<const TVITEMW*>(lParam)) ? TRUE : FALSE;
    case TVM_GETNEXTITEM:
        return reinterpret_cast<LRESULT>(Next(ToHandle(lParam), wParam));
    case TVM_SELECTITEM:
        return Select(ToHandle(lParam), wParam) ? TRUE : FALSE;
    case TVM_ENSUREVISIBLE:
        return Reveal(ToHandle(lParam), EnsureVisible) ? TRUE : FALSE;
    case TVM_EXPAND: {
        TreeItem* const item = Find(ToHandle(lParam));
        return item != nullptr && Fold(*item, wParam) ? TRUE : FALSE;
    }
    case TVM_GETITEMRECT:
        return GetRect(reinterpret_cast<LPRECT>(lParam), wParam != 0) ? TRUE : FALSE;
    case TVM_HITTEST: {
        auto& info = *reinterpret_cast<TVHITTESTINFO*>(lParam);
        const Hit hit = HitTest({info.pt.x, info.pt.y});
        info.flags = hit.Flags;
        info.hItem = HandleOf(hit.Item);
        return reinterpret_cast<LRESULT>(info.hItem);
    }
    case WM_SETFONT:
        UseFont(reinterpret_cast<HFONT>(wParam));
        return ScrollAreaWindow::OnDefault(message, wParam, lParam);
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(Font != nullptr ? Font : GetStockObject(DEFAULT_GUI_FONT));
    default:
        return ScrollAreaWindow::OnDefault(message, wParam, lParam);
    }
}

void TreeWindow::UseFont(HFONT font)
{
    auto* const chosen = dynamic_cast<gdi::Font*>(gdi::GdiObject::FromHandle(font));
    m_font.Replace(chosen != nullptr ? *chosen : gdi::StockFont(DEFAULT_GUI_FONT));
    scheduleDelayedItemsLayout();
}

// ---- Rows

HTREEITEM TreeWindow::Insert(const TVINSERTSTRUCTW& row)
{
    TreeItem* const parent = Find(row.hParent);
    if (parent == nullptr && !IsRoot(row.hParent))
        return nullptr;
    auto* const item = new TreeItem(m_handles);
    if (parent != nullptr)
        item->AppendTo(*parent);
    else
        addTopLevelItem(item);
    TVITEMW wanted = row.item;
    wanted.hItem = item->Handle();
    Set(wanted);
    return item->Handle();
}

bool TreeWindow::Delete(HTREEITEM handle)
{
    if (IsRoot(handle)) {
        clear();
        return true;
    }
    TreeItem* const item = Find(handle);
    if (item == nullptr)
        return false;
    TreeItem* const parent = item->Parent();
    delete item;
    if (parent != nullptr && parent->childCount() == 0)
        parent->setExpanded(false);
    return true;
}

bool TreeWindow::Get(TVITEMW& item) const
{
    const TreeItem* const row = Find(item.hItem);
    if (row == nullptr)
        return false;
    if ((item.mask & TVIF_TEXT) != 0 && item.pszText != nullptr && item.cchTextMax > 0) {
        const QString text = row->text(0).left(item.cchTextMax - 1);
        std::copy_n(reinterpret_cast<LPCWSTR>(text.utf16()), text.size() + 1, item.pszText);
    }
    if ((item.mask & TVIF_PARAM) != 0)
        item.lParam = row->Data;
    if ((item.mask & TVIF_STATE) != 0)
        item.state = StateOf(*row) & item.stateMask;
    if ((item.mask & TVIF_CHILDREN) != 0)
        item.cChildren = row->childCount() > 0 ? 1 : 0;
    return true;
}

// Nobody is told: the states are those that a row is to have, not what the user does to it.
bool TreeWindow::Set(const TVITEMW& item)
{
    TreeItem* const row = Find(item.hItem);
    if (row == nullptr)
        return false;
    if ((item.mask & TVIF_TEXT) != 0)
        row->setText(0, item.pszText != nullptr ? gdi::ToQString(item.pszText) : QString());
    if ((item.mask & TVIF_PARAM) != 0)
        row->Data = item.lParam;
    if ((item.mask & TVIF_STATE) != 0 && (item.stateMask & TVIS_EXPANDED) != 0)
        row->SetUnfolded((item.state & TVIS_EXPANDED) != 0);
    if ((item.mask & TVIF_STATE) != 0 && (item.stateMask & TVIS_SELECTED) != 0)
        row->setSelected((item.state & TVIS_SELECTED) != 0);
    return true;
}

UINT TreeWindow::StateOf(const TreeItem& item) const
{
    return (item.isSelected() ? TVIS_SELECTED : 0) | (item.IsUnfolded() ? TVIS_EXPANDED : 0);
}

// ---- Relations

TreeItem* TreeWindow::Sibling(const TreeItem& item, int distance) const
{
    const QModelIndex index = indexFromItem(&item);
    return static_cast<TreeItem*>(itemFromIndex(index.siblingAtRow(index.row() + distance)));
}

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
        return HandleOf(Sibling(*item, 1));
    case TVGN_PARENT:
        return HandleOf(item->Parent());
    case TVGN_CHILD:
        return HandleOf(item->child(0));
    case TVGN_NEXTVISIBLE:
        return PlacesOf(*item).Row.isEmpty() ? nullptr : HandleOf(itemBelow(item));
    case TVGN_PREVIOUSVISIBLE:
        return PlacesOf(*item).Row.isEmpty() ? nullptr : HandleOf(itemAbove(item));
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
        selectionModel()->clear();
        return true;
    }
    const bool isThere = Reveal(handle, EnsureVisible);
    if (isThere)
        setCurrentItem(Find(handle));
    return isThere;
}
