// How a tree is made, and which message does what.
#include "TreeWindow.h"

#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QtConvert.h>

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

// Whether the message is about a structure that it points to.
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

HTREEITEM ToHandle(LPARAM lParam)
{
    return reinterpret_cast<HTREEITEM>(lParam);
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
    case TVM_EXPAND: {
        TreeItem* const item = Find(ToHandle(lParam));
        return item != nullptr && Fold(*item, wParam) ? TRUE : FALSE;
    }
    case TVM_GETITEMRECT:
        return GetRect(*reinterpret_cast<LPRECT>(lParam), wParam != 0) ? TRUE : FALSE;
    case TVM_HITTEST: {
        auto& info = *reinterpret_cast<TVHITTESTINFO*>(lParam);
        const Hit hit = HitTest({info.pt.x, info.pt.y});
        info.flags = hit.Flags;
        info.hItem = hit.Item != nullptr ? hit.Item->Handle() : nullptr;
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
    m_metrics = QFontMetrics(gdi::ToQFont(m_font->Wanted()));
    scheduleDelayedItemsLayout();
}
