// Handing an object over to an array that owns what it points to.
#pragma once

#include <afxcoll.h>

#include <memory>

// Appends the object and gives its position; where the array can't grow, the object goes with the exception.
template <class Array, class Element> INT_PTR AddOwned(Array& array, std::unique_ptr<Element> element)
{
    const INT_PTR position = array.Add(element.get());
    static_cast<void>(element.release());
    return position;
}
