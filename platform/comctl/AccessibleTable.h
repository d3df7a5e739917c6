// The table of a tree and its header for screen readers.
#pragma once

#include "TreeTable.h"

#include <AccessibleWindow.h>
#include <QPointer>

// Stands for the parent of the two. Its rows are those of the tree that no parent hides, its children the
// headings and then the cells, row by row. A press on a cell is the double click that edits it.
class AccessibleTable : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    AccessibleTable(Window& frame, TreeWindow& tree);

    // The object of a cell; null for a row that is gone.
    QAccessibleInterface* At(const TreeTable::Cell& cell) const;
    int RowOf(const TreeItem& item) const; // from 0

    QAccessible::State state() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    int rowCount() const override;
    int columnCount() const override;
    QAccessibleInterface* cellAt(int row, int column) const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;

    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    QList<QAccessibleInterface*> selectedCells() const override;
    QList<int> selectedColumns() const override;
    QList<int> selectedRows() const override;
    int selectedColumnCount() const override { return static_cast<int>(selectedColumns().size()); }
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    bool isColumnSelected(int column) const override { return selectedColumns().contains(column); }
    bool isRowSelected(int row) const override { return selectedRows().contains(row); }
    bool selectRow(int row) override;
    bool selectColumn(int column) override;
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override {}

private:
    TreeItem* RowAt(int row) const;
    bool Select(const TreeTable::Cell& cell);

    TreeWindow* Tree() const; // null once the window is gone

    QPointer<QWidget> m_tree;
    mutable AccessibleChildren<std::pair<HTREEITEM, int>> m_cells;
};

// The tree inside of the table, which has the keyboard focus and leaves it to the cell.
class AccessibleTree : public QAccessibleWidget
{
public:
    explicit AccessibleTree(TreeWindow& tree);

    int childCount() const override { return 0; }
    QAccessibleInterface* child(int index) const override; // for Qt, which counts the rows from 1
    QAccessibleInterface* focusChild() const override;
};

// Reports the cell or heading of the tree's table that has the focus now to screen readers.
void NotifyTableFocus(TreeWindow& tree);
