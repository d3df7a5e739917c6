#include "LineDef.h"

#include "LineDefPool.h"

namespace
{

#if defined(__has_feature)
constexpr bool isChecked = __has_feature(address_sanitizer);
#elif defined(__SANITIZE_ADDRESS__)
constexpr bool isChecked = true;
#else
constexpr bool isChecked = false;
#endif

// Records come from the pool, except those of derived classes, and except under the address sanitizer, which
// checks the lifetime of each block of the heap.
constexpr bool IsPooled(std::size_t size)
{
    return size == sizeof(k_LineDef) && !isChecked;
}

constinit k_LineDefPool pool;

} // namespace

k_LineDef::~k_LineDef() = default;

void* k_LineDef::operator new(std::size_t size)
{
    static_assert(sizeof(k_LineDef) <= k_LineDefPool::slotSize);
    return IsPooled(size) ? pool.Take() : CObject::operator new(size);
}

void k_LineDef::operator delete(void* record, std::size_t size) noexcept
{
    if (IsPooled(size))
        pool.Return(record);
    else
        CObject::operator delete(record);
}
