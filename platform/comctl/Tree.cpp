// Creation and messages of a tree, and the framework's tree.
#include "Tree.h"

#include "Control.h"
#include "ScrollBarPictures.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QtConvert.h>
#include <afxcmn.h>
#include <cstring>
#include <string>

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

// As wide as SM_CXVSCROLL.
class VerticalBar : public QScrollBar
{
public:
    explicit VerticalBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {}

    QSize sizeHint() const override
    {
        return {GetSystemMetrics(SM_CXVSCROLL), QScrollBar::sizeHint().height()};
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QStyleOptionSlider option;
        initStyleOption(&option);
        if (!m_pictures.Paint(*this, option))
            QScrollBar::paintEvent(event);
    }

private:
    ScrollBarPictures m_pictures;
};

// Whether lParam of the message points to a structure.
bool BringsData(UINT message)
{
    switch (message) {
    case TVM_INSERTITEMW:
    case TVM_GETITEMW:
    case TVM_SETITEMW:
    case TVM_GETITEMRECT:
    case TVM_HITTEST:
        return true;
    default:
        return false;
    }
}

// The Tab key reaches the tree where its parent has its place among the controls of the dialog.
void FollowParentInTabOrder(QWidget& tree)
{
    QWidget* before = tree.parentWidget();
    if (before == nullptr || before->isWindow())
        return;
    while (before->focusPolicy() == Qt::NoFocus && before != tree.window())
        before = before->previousInFocusChain();
    QWidget::setTabOrder(before, &tree);
}

HTREEITEM ToHandle(LPARAM lParam)
{
    return reinterpret_cast<HTREEITEM>(lParam);
}

} // namespace

TreeWindow::TreeWindow(DWORD style, QWidget* parent) : ScrollAreaWindow(parent)
{
    Style = style;
    setFrameShape(QFrame::NoFrame);
    setLayoutDirection(Qt::LeftToRight);
    setHeaderHidden(true);
    disconnect(header(), &QHeaderView::sectionResized, this, nullptr); // would repaint all a second time
    setItemDelegate(new RowDelegate(*this));
    setUniformRowHeights(true);
    setVerticalScrollBar(new VerticalBar(this));
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    FollowParentInTabOrder(*this);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

LRESULT TreeWindow::OnDefault(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (BringsData(message) && lParam == 0)
        return 0;
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
    case TVM_EXPAND:
        return ExpandInPlace(ToHandle(lParam), wParam) ? TRUE : FALSE;
    case TVM_MAPACCIDTOHTREEITEM: {
        const TreeItem* const item = Find(reinterpret_cast<HTREEITEM>(wParam));
        return item != nullptr ? reinterpret_cast<LRESULT>(item->Handle()) : 0;
    }
    case TVM_MAPHTREEITEMTOACCID:
        return Find(reinterpret_cast<HTREEITEM>(wParam)) != nullptr ? static_cast<LRESULT>(wParam) : 0;
    case TVM_GETITEMRECT:
        return GetRect(*reinterpret_cast<LPRECT>(lParam), wParam != 0) ? TRUE : FALSE;
    case TVM_HITTEST: {
        auto& info = *reinterpret_cast<TVHITTESTINFO*>(lParam);
        const Hit hit = HitTest(gdi::ToQPoint(info.pt));
        info.flags = hit.Flags;
        info.hItem = hit.Item != nullptr ? hit.Item->Handle() : nullptr;
        return reinterpret_cast<LRESULT>(info.hItem);
    }
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(TextFont());
    default:
        return ScrollAreaWindow::OnDefault(message, wParam, lParam);
    }
}

HFONT TreeWindow::TextFont() const
{
    return Font() != nullptr ? Font() : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

BOOL CTreeCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, MakeControl<TreeWindow>, {nullptr, dwStyle, rect, pParentWnd, nID});
}

BOOL CTreeCtrl::ItemHasChildren(HTREEITEM hItem) const
{
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_CHILDREN;
    item.hItem = hItem;
    return GetItem(item) != FALSE && item.cChildren != 0 ? TRUE : FALSE;
}

// The message doesn't give the length of a text.
CString CTreeCtrl::GetItemText(HTREEITEM hItem) const
{
    constexpr std::size_t firstRoom = 128;
    for (std::size_t room = firstRoom;; room *= 2) {
        std::u16string text(room, u'\0');
        TVITEMW item{};
        item.mask = TVIF_HANDLE | TVIF_TEXT;
        item.hItem = hItem;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(room);
        if (GetItem(item) == FALSE)
            return {};
        if (const std::size_t length = text.find(u'\0'); length < room - 1)
            return {text.c_str(), static_cast<int>(length)};
    }
}

UINT_PTR CTreeCtrl::GetItemData(HTREEITEM hItem) const
{
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_PARAM;
    item.hItem = hItem;
    return GetItem(item) != FALSE ? static_cast<UINT_PTR>(item.lParam) : 0;
}

UINT CTreeCtrl::GetItemState(HTREEITEM hItem, UINT nStateMask) const
{
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_STATE;
    item.hItem = hItem;
    item.stateMask = nStateMask;
    return GetItem(item) != FALSE ? item.state & nStateMask : 0;
}

HTREEITEM CTreeCtrl::HitTest(CPoint pt, UINT* pFlags) const
{
    TVHITTESTINFO info{pt, 0, nullptr};
    const LRESULT row = Ask(TVM_HITTEST, 0, &info);
    if (pFlags != nullptr)
        *pFlags = info.flags;
    return reinterpret_cast<HTREEITEM>(row);
}

BOOL CTreeCtrl::GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const
{
    std::memcpy(lpRect, &hItem, sizeof(HTREEITEM)); // the message takes it from the rectangle
    return static_cast<BOOL>(Ask(TVM_GETITEMRECT, static_cast<WPARAM>(bTextOnly), lpRect));
}
