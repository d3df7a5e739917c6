// The quantities that the catalogue still has to place.
#pragma once

#include "QuantityKey.h"

#include <utility>

// A quantity of the unit library's list, in one pool at a time.
struct k_PooledQuantity {
    QuantityKey Key;
    k_PooledQuantity* Next = nullptr; // in its pool
};

// A linked list of quantities in the order of the rows to come. It owns none of them; moving one takes
// constant time.
class k_QuantityPool
{
public:
    bool HoldsOne() const { return m_first != nullptr && m_first == m_last; }

    // The pool must not be empty.
    const QuantityKey& First() const { return m_first->Key; }

    void Add(k_PooledQuantity& quantity)
    {
        quantity.Next = nullptr;
        (m_first != nullptr ? m_last->Next : m_first) = &quantity;
        m_last = &quantity;
    }

    // Calls visit(key) for each quantity.
    template <class Visit> void ForEach(Visit visit) const
    {
        for (const k_PooledQuantity* each = m_first; each != nullptr; each = each->Next)
            visit(each->Key);
    }

    // Moves every quantity to the end of the pool that poolOf(key) returns, which must not be this one.
    template <class PoolOf> void MoveAll(PoolOf poolOf)
    {
        k_PooledQuantity* next = std::exchange(m_first, nullptr);
        while (k_PooledQuantity* const each = next) {
            next = each->Next;
            poolOf(each->Key).Add(*each);
        }
    }

private:
    k_PooledQuantity* m_first = nullptr;
    k_PooledQuantity* m_last = nullptr; // meaningless while the pool is empty
};
