// A list of objects that enter it when they are constructed, and leave it when they are destroyed.
#pragma once

// Has static storage, constinit, so that objects with static storage can enter it in any order.
template <class Object> class InstanceList
{
public:
    // A member of each object in the list.
    class Entry
    {
    public:
        Entry(InstanceList& list, Object& object) : m_list(list), m_object(object), m_next(list.m_first)
        {
            list.m_first = this;
        }
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;
        ~Entry()
        {
            Entry** link = &m_list.m_first;
            while (*link != this)
                link = &(*link)->m_next;
            *link = m_next;
        }

    private:
        friend InstanceList;

        InstanceList& m_list;
        Object& m_object;
        Entry* m_next;
    };

    // The newest object that fits; null if there is none.
    template <class Predicate> Object* Find(Predicate fits) const
    {
        for (const Entry* entry = m_first; entry != nullptr; entry = entry->m_next) {
            if (fits(entry->m_object))
                return &entry->m_object;
        }
        return nullptr;
    }

private:
    Entry* m_first = nullptr;
};
