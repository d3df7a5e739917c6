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
