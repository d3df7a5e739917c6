// The rows of a tree, and the handles that name them.
#pragma once

#include <QTreeWidgetItem>
#include <commctrl.h>
#include <unordered_map>

class TreeItem;

// Which handle names which row. A handle is a number that is given out once, so that one whose row is gone
// names nothing, whatever came after.
class TreeHandles
{
public:
    HTREEITEM Add(TreeItem& item);
    void Remove(HTREEITEM handle) { m_items.erase(handle); }
    TreeItem* Find(HTREEITEM handle) const; // null for a handle that names no row

private:
    std::unordered_map<HTREEITEM, TreeItem*> m_items;
    INT_PTR m_last = 0;
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

    LPARAM Data = 0; // the owner's

private:
    TreeHandles& m_handles;
    HTREEITEM m_handle;
};
