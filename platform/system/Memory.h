// The standard library's memory exception is the framework's, seen from above.
#pragma once

#include <afxobj.h>

#include <new>

// Gives what the operation gives; raises the memory exception where it has no memory.
template <class Operation> auto WithFrameworkMemory(Operation operation)
{
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}
