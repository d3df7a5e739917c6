#include "AccessibleCell.h"

#include <Later.h>

AccessibleCell::AccessibleCell(const AccessibleTable& table, TreeWindow& tree, HTREEITEM row, int column)
    : m_table(table), m_tree(&tree), m_row(row), m_column(column)
{
}

TreeWindow* AccessibleCell::Tree() const
{
    return dynamic_cast<TreeWindow*>(Window::Of(m_tree));
}

TreeTable::Cell AccessibleCell::Cell() const
{
    return {Tree()->Find(m_row), m_column};
}

bool AccessibleCell::isValid() const
{
    return Tree() != nullptr && (IsHeading() || Tree()->Find(m_row) != nullptr);
}

QAccessibleInterface* AccessibleCell::parent() const
{
    return const_cast<AccessibleTable*>(&m_table);
}

void* AccessibleCell::interface_cast(QAccessible::InterfaceType type)
{
    switch (type) {
    case QAccessible::ActionInterface:
        return static_cast<QAccessibleActionInterface*>(this);
    case QAccessible::TableCellInterface:
        return static_cast<QAccessibleTableCellInterface*>(this);
    default:
        return nullptr;
    }
}

QAccessible::Role AccessibleCell::role() const
{
    if (IsHeading())
        return QAccessible::ColumnHeader;
    return m_column == 0 ? QAccessible::RowHeader : QAccessible::Cell;
}

QAccessible::State AccessibleCell::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid)
        return state;
    state.disabled = !Tree()->isEnabled();
    state.focusable = true;
    state.selectable = true;
    state.selected = isSelected();
    state.focused = isSelected() && Tree()->hasFocus();
    state.offscreen = !rect().intersects(m_table.rect());
    const TreeItem* const row = Cell().Row;
    if (row != nullptr && m_column == 0 && row->childCount() > 0) {
        state.expandable = true;
        state.expanded = row->IsExpanded();
        state.collapsed = !row->IsExpanded();
    }
    return state;
}

QString AccessibleCell::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Name && isValid() ? TreeTable(*Tree()).NameOf(Cell()) : QString();
}

QRect AccessibleCell::rect() const
{
    return isValid() ? TreeTable(*Tree()).PlaceOf(Cell()) : QRect();
}

// Later, because a double click opens a dialog.
void AccessibleCell::doAction(const QString& action)
{
    if (!isValid() || (action != pressAction() && action != setFocusAction()))
        return;
    const auto click = [tree = Tree(), row = m_row, column = m_column, edits = action == pressAction()] {
        const TreeTable::Cell cell{tree->Find(row), column};
        if (cell.Row == nullptr && row != nullptr)
            return;
        if (edits)
            TreeTable(*tree).ClickTwice(cell);
        else
            TreeTable(*tree).Click(cell);
    };
    CallLater(*Tree(), click);
}

QStringList AccessibleCell::keyBindingsForAction(const QString& action) const
{
    return action == pressAction() && isSelected() ? QStringList{QStringLiteral("F2")} : QStringList();
}

// ---- In the table

bool AccessibleCell::isSelected() const
{
    if (!isValid())
        return false;
    const TreeTable::Cell selected = TreeTable(*Tree()).Selected();
    return selected.Row == Cell().Row && selected.Column == m_column;
}

int AccessibleCell::rowIndex() const
{
    return isValid() && !IsHeading() ? m_table.RowOf(*Cell().Row) : -1;
}

QList<QAccessibleInterface*> AccessibleCell::columnHeaderCells() const
{
    return isValid() && !IsHeading() ? QList{m_table.At({nullptr, m_column})}
                                     : QList<QAccessibleInterface*>();
}

QList<QAccessibleInterface*> AccessibleCell::rowHeaderCells() const
{
    return isValid() && !IsHeading() && m_column > 0 ? QList{m_table.At({Cell().Row, 0})}
                                                     : QList<QAccessibleInterface*>();
}
