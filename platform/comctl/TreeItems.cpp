#include "TreeItems.h"

HTREEITEM TreeHandles::Add(TreeItem& item)
{
    const auto handle = reinterpret_cast<HTREEITEM>(++m_last);
    m_items.emplace(handle, &item);
    return handle;
}

TreeItem* TreeHandles::Find(HTREEITEM handle) const
{
    const auto found = m_items.find(handle);
    return found != m_items.end() ? found->second : nullptr;
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
