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

// A record comes from the common memory, but for what is derived from it, and where each record's life is
// checked for itself.
constexpr bool IsPooled(std::size_t size)
{
    return size == sizeof(k_LineDef) && !isChecked;
}

constinit k_LineDefPool memory;

} // namespace

k_LineDef::~k_LineDef() = default;

void* k_LineDef::operator new(std::size_t size)
{
    static_assert(sizeof(k_LineDef) <= k_LineDefPool::placeSize);
    return IsPooled(size) ? memory.Take() : CObject::operator new(size);
}

void k_LineDef::operator delete(void* record, std::size_t size) noexcept
{
    if (IsPooled(size))
        memory.Return(record);
    else
        CObject::operator delete(record);
}
