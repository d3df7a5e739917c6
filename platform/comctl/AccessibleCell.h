// A cell or a heading of the table of a tree, for screen readers.
#pragma once

#include "AccessibleTable.h"

class AccessibleCell : public QAccessibleInterface,
                       public QAccessibleActionInterface,
                       public QAccessibleTableCellInterface
{
public:
    // A heading if there is no row.
    AccessibleCell(const AccessibleTable& table, TreeWindow& tree, HTREEITEM row, int column);

    bool IsHeading() const { return m_row == nullptr; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    void* interface_cast(QAccessible::InterfaceType type) override;

    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override;

    // The focus is given by a click, a press is a double click.
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& action) override;
    QStringList keyBindingsForAction(const QString& action) const override;

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override;
    int columnIndex() const override { return m_column; }
    int rowIndex() const override; // -1 for a heading
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

private:
    TreeWindow* Tree() const; // null once the window is gone
    TreeTable::Cell Cell() const;

    const AccessibleTable& m_table; // which deletes this object
    QPointer<QWidget> m_tree;
    HTREEITEM m_row;
    int m_column;
};
