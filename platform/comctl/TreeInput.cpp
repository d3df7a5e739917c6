// Mouse and keyboard of a tree, and the notifications of its parent.
#include "Tree.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPointer>

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
    SetExpanded(item, expands);
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

// ---- The keyboard

// Handles expansion itself, because the parent may change any row when it is notified.
void TreeWindow::keyPressEvent(QKeyEvent* event)
{
    TreeItem* const caret = Caret();
    switch (caret != nullptr ? event->key() : 0) {
    case Qt::Key_Left:
        if (!Expand(*caret, TVE_COLLAPSE) && caret->Parent() != nullptr)
            setCurrentItem(caret->Parent());
        break;
    case Qt::Key_Right:
        if (!Expand(*caret, TVE_EXPAND) && caret->childCount() > 0)
            setCurrentItem(caret->child(0));
        break;
    case Qt::Key_Plus:
        Expand(*caret, TVE_EXPAND);
        break;
    case Qt::Key_Minus:
        Expand(*caret, TVE_COLLAPSE);
        break;
    case Qt::Key_Asterisk:
        break; // Qt would expand the whole subtree without notifications
    default:
        QTreeWidget::keyPressEvent(event);
        break;
    }
}

// A tree with the focus has a selected row. The end of a menu doesn't select one.
void TreeWindow::focusInEvent(QFocusEvent* event)
{
    QTreeWidget::focusInEvent(event);
    if (event->reason() == Qt::PopupFocusReason)
        return;
    if (TreeItem* const item = Caret() != nullptr ? Caret() : FirstVisible())
        setCurrentItem(item);
}
