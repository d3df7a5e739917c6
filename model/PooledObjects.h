// Objects in pools of memory.
#pragma once

#include "SlotPool.h"

// A class whose objects are made and deleted in such slots: it names the two functions below in its operators
// new and delete. Objects of derived classes come from the heap, and all objects under the address sanitizer,
// which checks the lifetime of each block of the heap.
template <class Object> class k_PooledObjects
{
public:
    static void* New(std::size_t size) { return IsPooled(size) ? pool.Take() : CObject::operator new(size); }
    static void Delete(void* object, std::size_t size) noexcept
    {
        if (IsPooled(size))
            pool.Return(object);
        else
            CObject::operator delete(object);
    }

private:
#if defined(__has_feature)
    static constexpr bool isChecked = __has_feature(address_sanitizer);
#elif defined(__SANITIZE_ADDRESS__)
    static constexpr bool isChecked = true;
#else
    static constexpr bool isChecked = false;
#endif
    static constexpr std::size_t slotSize = (sizeof(Object) + 31) / 32 * 32;

    static constexpr bool IsPooled(std::size_t size)
    {
        return size == sizeof(Object) && !isChecked;
    }

    static constinit inline k_SlotPool<slotSize> pool;
};
