// Counts the memory blocks that the whole process has allocated, its libraries included.
#pragma once

#include <cstddef>

namespace bench
{

// Calls of malloc, calloc, realloc and aligned_alloc since the start.
std::size_t AllocationCount();

} // namespace bench
