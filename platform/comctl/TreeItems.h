// The rows of a tree and their handles.
#pragma once

#include <QTreeWidgetItem>
#include <commctrl.h>
#include <vector>

class TreeItem;

// Maps handles to rows. A handle is a number that is never reused, so that the handle of a deleted row stays
// invalid.
class TreeHandles
{
public:
    HTREEITEM Add(TreeItem& item);
    void Remove(HTREEITEM handle);
    TreeItem* Find(HTREEITEM handle) const; // null for an invalid handle

private:
    std::vector<TreeItem*> m_items; // by handle; null for deleted rows
    std::size_t m_rows = 0;
    std::size_t m_forgotten = 0; // number of handles before the first of m_items
};

class TreeItem : public QTreeWidgetItem
{
public:
    // handles has to outlive the row.
    explicit TreeItem(TreeHandles& handles) : m_handles(handles), m_handle(handles.Add(*this)) {}
    TreeItem(const TreeItem&) = delete;
    TreeItem& operator=(const TreeItem&) = delete;
    ~TreeItem() override { m_handles.Remove(m_handle); }

    HTREEITEM Handle() const { return m_handle; }
    TreeItem* Parent() const { return static_cast<TreeItem*>(parent()); } // may be null
    int Level() const;                                                    // 0 without a parent
    bool IsBelow(const TreeItem& other) const;
    bool IsShown() const;                  // all parents are expanded
    int ExpandedBelow() const;             // number of rows that are shown below it if it is
    TreeItem* Sibling(int distance) const; // null if there is none

    // Only rows with children are expanded in the view, which keeps a record for each expanded row.
    bool IsExpanded() const { return childCount() > 0 ? isExpanded() : m_isExpanded; }
    void SetExpanded(bool isExpanded);
    void Append(TreeItem& child); // takes ownership

    QVariant data(int column, int role) const override;
    const QString& Text() const { return m_text; }
    void SetText(const QString& text);

    LPARAM Data = 0; // set by the owner

private:
    TreeHandles& m_handles;
    HTREEITEM m_handle;
    QString m_text;
    bool m_isExpanded = false;
    mutable int m_place = 0; // among its siblings, when it was last needed
};
