// The keyboard of a tree.
#include "AccessibleTable.h"
#include "Tree.h"
#include "TreeTable.h"

#include <Later.h>
#include <QKeyEvent>

namespace
{

// Whether the key does something with the caret row.
bool NeedsCaret(const QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Backspace:
        return true;
    default:
        return !key.text().isEmpty();
    }
}

} // namespace

TreeItem* TreeWindow::ShownParent(TreeItem* item) const
{
    while (item != nullptr && RowOf(*item).isEmpty())
        item = item->Parent();
    return item;
}

TreeItem* TreeWindow::KeyRow() const
{
    if (TreeItem* const caret = Caret())
        return caret;
    TreeItem* const last = ShownParent(Find(m_lastCaret));
    return last != nullptr ? last : FirstVisible();
}

bool TreeWindow::ActForMouse(const QKeyEvent& key)
{
    const TreeTable table(*this);
    if (key.key() == Qt::Key_F2 && key.modifiers() == Qt::NoModifier)
        table.ClickTwice(table.Selected());
    else if (key.key() == Qt::Key_F6 && (key.modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier)
        table.Click(table.Next(key.modifiers() == Qt::NoModifier ? 1 : -1));
    else
        return false;
    return true;
}

QAccessibleInterface* TreeWindow::NewAccessible()
{
    return new AccessibleTree(*this);
}

bool TreeWindow::event(QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::KeyPress)
        ReportFocus(event->type() == QEvent::FocusIn);
    return ScrollAreaWindow::event(event);
}

// After the event. Qt reports a move of the caret itself, but knows no cells.
void TreeWindow::ReportFocus(bool isNew)
{
    if (!QAccessible::isActive())
        return;
    CallLater(*this, [this, isNew] {
        if (isNew || Caret() == nullptr)
            NotifyTableFocus(*this);
    });
}

// Handles expansion itself, because the parent may change any row when it is notified.
void TreeWindow::keyPressEvent(QKeyEvent* event)
{
    if (Caret() == nullptr && Find(m_lastCaret) != nullptr && NeedsCaret(*event))
        setCurrentItem(KeyRow());
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
    case Qt::Key_Backspace:
        if (caret->Parent() != nullptr)
            setCurrentItem(caret->Parent());
        break;
    case Qt::Key_Plus:
        Expand(*caret, TVE_EXPAND);
        break;
    case Qt::Key_Minus:
        Expand(*caret, TVE_COLLAPSE);
        break;
    case Qt::Key_Asterisk: // Qt would send no notifications
        ExpandBelow(*caret);
        break;
    case Qt::Key_Space:
        if (event->modifiers().testFlag(Qt::ControlModifier))
            break; // Qt would deselect the row
        [[fallthrough]];
    default:
        QTreeWidget::keyPressEvent(event);
        break;
    }
}

// A tree with the focus has a selected row. The end of a menu doesn't select one.
void TreeWindow::focusInEvent(QFocusEvent* event)
{
    TreeItem* const row = KeyRow(); // Qt makes the first row current
    QTreeWidget::focusInEvent(event);
    if (event->reason() != Qt::PopupFocusReason && row != nullptr)
        setCurrentItem(row);
}
