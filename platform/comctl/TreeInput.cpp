// What the user does to a tree, and what its parent hears of that.
#include "Tree.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPointer>

void TreeWindow::TellFolded(const TreeItem& item, WPARAM code)
{
    NMTREEVIEWW told{};
    told.action = static_cast<UINT>(code);
    told.itemNew.mask = TVIF_HANDLE | TVIF_STATE | TVIF_PARAM;
    told.itemNew.hItem = item.Handle();
    told.itemNew.state = StateOf(item);
    told.itemNew.stateMask = TVIS_EXPANDED | TVIS_SELECTED;
    told.itemNew.lParam = item.Data;
    Notify(told.hdr, TVN_ITEMEXPANDEDW);
}

bool TreeWindow::Fold(TreeItem& item, WPARAM code)
{
    const bool unfolds = code == TVE_EXPAND;
    if ((!unfolds && code != TVE_COLLAPSE) || item.childCount() == 0 || item.IsUnfolded() == unfolds)
        return false;
    SetUnfolded(item, unfolds);
    TellFolded(item, code);
    return true;
}

// What is selected stays in view.
void TreeWindow::SetUnfolded(TreeItem& item, bool unfolds)
{
    item.SetUnfolded(unfolds);
    if (const TreeItem* const caret = Caret(); !unfolds && caret != nullptr && caret->IsBelow(item))
        setCurrentItem(&item);
}

// ---- The mouse
//
// Qt's own handling selects all along a row, and while the mouse is dragged.

// A click with the right button asks for the menu, not the press. While the mouse is pressed no row that is
// selected goes from under it.
bool TreeWindow::viewportEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::ContextMenu:
        event->accept();
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const QPointer<QWidget> tree(this); // may be deleted by whatever runs in a loop of a handler
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
    NMHDR told{};
    if (Notify(told, NM_RCLICK) == 0)
        SendContained(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Handle()),
                      gdi::ToLParam(event->globalPosition().toPoint()));
}

// ---- The keyboard

// Folding is done here, since the parent may do anything with the rows when it hears of it.
void TreeWindow::keyPressEvent(QKeyEvent* event)
{
    TreeItem* const caret = Caret();
    switch (caret != nullptr ? event->key() : 0) {
    case Qt::Key_Left:
        if (!Fold(*caret, TVE_COLLAPSE) && caret->Parent() != nullptr)
            setCurrentItem(caret->Parent());
        break;
    case Qt::Key_Right:
        if (!Fold(*caret, TVE_EXPAND) && caret->childCount() > 0)
            setCurrentItem(caret->child(0));
        break;
    case Qt::Key_Plus:
        Fold(*caret, TVE_EXPAND);
        break;
    case Qt::Key_Minus:
        Fold(*caret, TVE_COLLAPSE);
        break;
    case Qt::Key_Asterisk:
        break; // Qt unfolds all that is below, and nobody would hear of it
    default:
        QTreeWidget::keyPressEvent(event);
        break;
    }
}

// A tree that gets the focus has a selected row; a menu's end gives it none that it hadn't before.
void TreeWindow::focusInEvent(QFocusEvent* event)
{
    QTreeWidget::focusInEvent(event);
    if (event->reason() == Qt::PopupFocusReason)
        return;
    if (TreeItem* const item = Caret() != nullptr ? Caret() : FirstVisible())
        setCurrentItem(item);
}
