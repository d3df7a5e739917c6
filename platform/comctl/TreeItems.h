// The rows of a tree, and the handles that name them.
#pragma once

#include <QTreeWidgetItem>
#include <commctrl.h>
#include <vector>

class TreeItem;

// Which handle names which row. A handle is a number that is given out once, so that one whose row is gone
// names nothing, whatever came after.
class TreeHandles
{
public:
    HTREEITEM Add(TreeItem& item);
    void Remove(HTREEITEM handle);
    TreeItem* Find(HTREEITEM handle) const; // null for a handle that names no row

private:
    std::vector<TreeItem*> m_items; // by handle; null where the row is gone
    std::size_t m_rows = 0;
    std::size_t m_forgotten = 0; // handles before the first of these
};

class TreeItem : public QTreeWidgetItem
{
public:
    // The handles have to outlive the row.
    explicit TreeItem(TreeHandles& handles) : m_handles(handles), m_handle(handles.Add(*this)) {}
    TreeItem(const TreeItem&) = delete;
    TreeItem& operator=(const TreeItem&) = delete;
    ~TreeItem() override { m_handles.Remove(m_handle); }

    HTREEITEM Handle() const { return m_handle; }
    TreeItem* Parent() const { return static_cast<TreeItem*>(parent()); } // null for a row without one
    int Level() const;                                                    // 0 without a parent
    bool IsBelow(const TreeItem& other) const;

    // The view, which keeps a record of each row that is unfolded, hears of those with children alone.
    bool IsUnfolded() const { return childCount() > 0 ? isExpanded() : m_isUnfolded; }
    void SetUnfolded(bool isUnfolded);
    void Append(TreeItem& child); // which is the row's from then on

    QVariant data(int column, int role) const override;
    const QString& Text() const { return m_text; }
    void SetText(const QString& text);

    LPARAM Data = 0; // the owner's

private:
    TreeHandles& m_handles;
    HTREEITEM m_handle;
    QString m_text;
    bool m_isUnfolded = false;
};
