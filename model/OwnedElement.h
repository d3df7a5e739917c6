// Transfers an object to an array that owns what it points to.
#pragma once

#include <afxcoll.h>

#include <memory>

// Appends the object and returns its position. If the array can't grow, the object is deleted and the
// exception is passed on.
template <class Array, class Element> INT_PTR AddOwned(Array& array, std::unique_ptr<Element> element)
{
    const INT_PTR position = array.Add(element.get());
    static_cast<void>(element.release());
    return position;
}
