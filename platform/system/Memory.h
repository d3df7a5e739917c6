// Translates the standard library's memory exception to the framework's.
#pragma once

#include <afxobj.h>

#include <new>

// Runs the operation; its std::bad_alloc becomes the framework's memory exception.
template <class Operation> auto WithFrameworkMemory(Operation operation)
{
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}
