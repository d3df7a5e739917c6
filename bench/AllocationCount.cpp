// The program's own malloc stands before the C library's, for every library that the program loads.
#include "AllocationCount.h"

#include <atomic>

namespace
{

constinit std::atomic<std::size_t> allocations{0};

} // namespace

namespace bench
{

std::size_t AllocationCount()
{
    return allocations.load(std::memory_order_relaxed);
}

} // namespace bench

extern "C" {

void* __libc_malloc(std::size_t size);                          // NOLINT(bugprone-reserved-identifier)
void* __libc_calloc(std::size_t count, std::size_t size);       // NOLINT(bugprone-reserved-identifier)
void* __libc_realloc(void* block, std::size_t size);            // NOLINT(bugprone-reserved-identifier)
void* __libc_memalign(std::size_t alignment, std::size_t size); // NOLINT(bugprone-reserved-identifier)

[[gnu::visibility("default")]] void* malloc(std::size_t size)
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_malloc(size);
}

[[gnu::visibility("default")]] void* calloc(std::size_t count, std::size_t size)
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_calloc(count, size);
}

[[gnu::visibility("default")]] void* realloc(void* block, std::size_t size)
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_realloc(block, size);
}

[[gnu::visibility("default")]] void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_memalign(alignment, size);
}

} // extern "C"
