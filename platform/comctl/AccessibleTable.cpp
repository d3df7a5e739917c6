#include "AccessibleTable.h"

#include "AccessibleCell.h"

#include <QScrollBar>
#include <memory>

AccessibleTable::AccessibleTable(Window& frame, TreeWindow& tree)
    : QAccessibleWidget(&frame.Widget(), QAccessible::Table), m_tree(&tree)
{
}

TreeWindow* AccessibleTable::Tree() const
{
    return dynamic_cast<TreeWindow*>(Window::Of(m_tree));
}

QAccessible::State AccessibleTable::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.focusable = true;
    return state;
}

void* AccessibleTable::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

// ---- Rows and columns

int AccessibleTable::columnCount() const
{
    return Tree() != nullptr ? TreeTable(*Tree()).ColumnCount() : 0;
}

int AccessibleTable::rowCount() const
{
    SCROLLINFO info{};
    if (Tree() == nullptr)
        return 0;
    if (Tree()->ScrollInfo(SB_VERT, info) && info.nMax > 0)
        return info.nMax + 1;
    int count = 0; // all rows are in the view
    while (RowAt(count) != nullptr)
        ++count;
    return count;
}

TreeItem* AccessibleTable::RowAt(int row) const
{
    if (Tree() == nullptr || row < 0)
        return nullptr;
    const int inView = row - Tree()->verticalScrollBar()->value();
    return static_cast<TreeItem*>(Tree()->itemAt(0, inView * Tree()->RowHeight()));
}

int AccessibleTable::RowOf(const TreeItem& item) const
{
    return Tree()->RowOf(item).top() / Tree()->RowHeight() + Tree()->verticalScrollBar()->value();
}

QAccessibleInterface* AccessibleTable::At(const TreeTable::Cell& cell) const
{
    HTREEITEM const row = cell.Row != nullptr ? cell.Row->Handle() : nullptr;
    return m_cells.At({row, cell.Column},
                      [&] { return std::make_unique<AccessibleCell>(*this, *Tree(), row, cell.Column); });
}

QAccessibleInterface* AccessibleTable::cellAt(int row, int column) const
{
    TreeItem* const item = column >= 0 && column < columnCount() ? RowAt(row) : nullptr;
    return item != nullptr ? At({item, column}) : nullptr;
}

QString AccessibleTable::columnDescription(int column) const
{
    return column >= 0 && column < columnCount() ? TreeTable(*Tree()).NameOf({nullptr, column}) : QString();
}

QString AccessibleTable::rowDescription(int row) const
{
    const TreeItem* const item = RowAt(row);
    return item != nullptr ? item->Text() : QString();
}

// ---- Children

int AccessibleTable::childCount() const
{
    return (1 + rowCount()) * columnCount();
}

QAccessibleInterface* AccessibleTable::child(int index) const
{
    const int columns = columnCount();
    if (columns == 0 || index < 0 || index >= childCount())
        return nullptr;
    return index < columns ? At({nullptr, index}) : cellAt(index / columns - 1, index % columns);
}

int AccessibleTable::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* const cell = dynamic_cast<const AccessibleCell*>(child);
    if (cell == nullptr || !cell->isValid())
        return -1;
    return (cell->IsHeading() ? 0 : 1 + cell->rowIndex()) * columnCount() + cell->columnIndex();
}

QAccessibleInterface* AccessibleTable::childAt(int x, int y) const
{
    for (int column = 0; column < columnCount(); ++column) {
        QAccessibleInterface* const heading = At({nullptr, column});
        if (heading->rect().contains(x, y))
            return heading;
        const QPoint point = Tree()->viewport()->mapFromGlobal(QPoint(x, y));
        auto* const row = static_cast<TreeItem*>(Tree()->itemAt(point));
        if (row != nullptr && At({row, column})->rect().contains(x, y))
            return At({row, column});
    }
    return nullptr;
}

QAccessibleInterface* AccessibleTable::focusChild() const
{
    if (Tree() == nullptr || !Tree()->hasFocus())
        return nullptr;
    const TreeTable::Cell cell = TreeTable(*Tree()).Selected();
    return cell.Row != nullptr || cell.Column > 0 ? At(cell) : nullptr;
}

// ---- Selection

QList<QAccessibleInterface*> AccessibleTable::selectedCells() const
{
    const TreeTable::Cell cell = Tree() != nullptr ? TreeTable(*Tree()).Selected() : TreeTable::Cell();
    return cell.Row != nullptr && cell.Column > 0 ? QList<QAccessibleInterface*>{At(cell)}
                                                  : QList<QAccessibleInterface*>();
}

QList<int> AccessibleTable::selectedColumns() const
{
    const TreeTable::Cell cell = Tree() != nullptr ? TreeTable(*Tree()).Selected() : TreeTable::Cell();
    return cell.Row == nullptr && cell.Column > 0 ? QList<int>{cell.Column} : QList<int>();
}

QList<int> AccessibleTable::selectedRows() const
{
    const TreeTable::Cell cell = Tree() != nullptr ? TreeTable(*Tree()).Selected() : TreeTable::Cell();
    return cell.Row != nullptr && cell.Column == 0 ? QList<int>{RowOf(*cell.Row)} : QList<int>();
}

bool AccessibleTable::Select(const TreeTable::Cell& cell)
{
    TreeTable(*Tree()).Click(cell);
    return true;
}

bool AccessibleTable::selectRow(int row)
{
    return RowAt(row) != nullptr && Select({RowAt(row), 0});
}

bool AccessibleTable::selectColumn(int column)
{
    return column > 0 && column < columnCount() && Select({nullptr, column});
}

// ---- The tree

AccessibleTree::AccessibleTree(TreeWindow& tree) : QAccessibleWidget(&tree, QAccessible::Tree) {}

QAccessibleInterface* AccessibleTree::child(int index) const
{
    auto* const table = dynamic_cast<AccessibleTable*>(parent());
    return table != nullptr ? table->cellAt(index - 1, 0) : nullptr;
}

QAccessibleInterface* AccessibleTree::focusChild() const
{
    const QAccessibleInterface* const table = parent();
    return table != nullptr ? table->focusChild() : nullptr;
}

void NotifyTableFocus(TreeWindow& tree)
{
    const QAccessibleInterface* const object = QAccessible::queryAccessibleInterface(&tree);
    if (QAccessibleInterface* const cell = object != nullptr ? object->focusChild() : nullptr) {
        QAccessibleEvent event(cell, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}
