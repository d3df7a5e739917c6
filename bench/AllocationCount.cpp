// The program's malloc replaces the C library's for every library that the program loads.
#include "AllocationCount.h"

#include <atomic>

namespace
{

constinit std::atomic<std::size_t> allocations{0};

void Count()
{
    allocations.fetch_add(1, std::memory_order_relaxed);
}

} // namespace

namespace bench
{

std::size_t AllocationCount()
{
    return allocations.load(std::memory_order_relaxed);
}

} // namespace bench

#pragma GCC visibility push(default)
extern "C" {

void* __libc_malloc(std::size_t size);                          // NOLINT(bugprone-reserved-identifier)
void* __libc_calloc(std::size_t count, std::size_t size);       // NOLINT(bugprone-reserved-identifier)
void* __libc_realloc(void* block, std::size_t size);            // NOLINT(bugprone-reserved-identifier)
void* __libc_memalign(std::size_t alignment, std::size_t size); // NOLINT(bugprone-reserved-identifier)

void* malloc(std::size_t size)
{
    return Count(), __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size)
{
    return Count(), __libc_calloc(count, size);
}
void* realloc(void* block, std::size_t size)
{
    return Count(), __libc_realloc(block, size);
}
void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return Count(), __libc_memalign(alignment, size);
}

} // extern "C"
#pragma GCC visibility pop
