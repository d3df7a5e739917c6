#include "TreeItems.h"

#include <utility>

HTREEITEM TreeHandles::Add(TreeItem& item)
{
    m_items.push_back(&item);
    ++m_rows;
    return reinterpret_cast<HTREEITEM>(m_forgotten + m_items.size());
}

void TreeHandles::Remove(HTREEITEM handle)
{
    m_items[reinterpret_cast<std::size_t>(handle) - m_forgotten - 1] = nullptr;
    if (--m_rows > 0)
        return;
    m_forgotten += std::exchange(m_items, {}).size();
}

TreeItem* TreeHandles::Find(HTREEITEM handle) const
{
    const std::size_t position = reinterpret_cast<std::size_t>(handle) - m_forgotten - 1;
    return position < m_items.size() ? m_items[position] : nullptr;
}

int TreeItem::Level() const
{
    int level = 0;
    for (const TreeItem* parent = Parent(); parent != nullptr; parent = parent->Parent())
        ++level;
    return level;
}

bool TreeItem::IsBelow(const TreeItem& other) const
{
    const TreeItem* parent = Parent();
    while (parent != nullptr && parent != &other)
        parent = parent->Parent();
    return parent != nullptr;
}

bool TreeItem::IsShown() const
{
    const TreeItem* parent = Parent();
    while (parent != nullptr && parent->IsExpanded())
        parent = parent->Parent();
    return parent == nullptr;
}

int TreeItem::ExpandedBelow() const
{
    const int groupSize = childCount();
    if (groupSize == 0 || !IsExpanded())
        return 0;
    int count = groupSize;
    for (int i = 0; i < groupSize; ++i)
        count += static_cast<const TreeItem*>(child(i))->ExpandedBelow();
    return count;
}

// Qt would search all siblings.
TreeItem* TreeItem::Sibling(int distance) const
{
    const QTreeWidgetItem* const group = Parent() != nullptr ? Parent() : treeWidget()->invisibleRootItem();
    if (group->child(m_place) != this)
        m_place = group->indexOfChild(const_cast<TreeItem*>(this));
    auto* const sibling = static_cast<TreeItem*>(group->child(m_place + distance));
    if (sibling != nullptr)
        sibling->m_place = m_place + distance;
    return sibling;
}

void TreeItem::SetExpanded(bool isExpanded)
{
    m_isExpanded = isExpanded;
    if (childCount() > 0)
        setExpanded(isExpanded);
}

void TreeItem::Append(TreeItem& child)
{
    addChild(&child);
    if (childCount() == 1)
        setExpanded(m_isExpanded); // the view may have another state from earlier children
}

QVariant TreeItem::data(int column, int role) const
{
    return role == Qt::DisplayRole ? QVariant(m_text) : QTreeWidgetItem::data(column, role);
}

void TreeItem::SetText(const QString& text)
{
    m_text = text;
    emitDataChanged();
}
