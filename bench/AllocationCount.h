// How many blocks of memory the whole process has asked for, its libraries included.
#pragma once

#include <cstddef>

namespace bench
{

// Calls of malloc, calloc, realloc and aligned_alloc since the start.
std::size_t AllocationCount();

} // namespace bench
