// The search for the row of a quantity, inlined into the export: a host calls it for each curve that it
// draws, and a function call would cost as much as a short search.
#pragma once

#include "QuantityList.h"

namespace row_lookup
{

using Slot = void* const*; // in the table

inline k_QuantityDesc* RowOf(Slot slot)
{
    return static_cast<k_QuantityDesc*>(*slot);
}

// The first slot whose row passes a test, or null. Empty slots are skipped. Four rows at a time: the count of
// the loop costs as much as the test.
template <class Passes> FORCEINLINE Slot Scan(Slot from, Slot end, Passes passes)
{
    const auto isFound = [&](Slot slot) { return *slot != nullptr && passes(*RowOf(slot)); };
    for (; end - from >= 4; from += 4) {
        if (isFound(from))
            return from;
        if (isFound(from + 1))
            return from + 1;
        if (isFound(from + 2))
            return from + 2;
        if (isFound(from + 3))
            return from + 3;
    }
    for (; from != end; ++from) {
        if (isFound(from))
            return from;
    }
    return nullptr;
}

// Continues the search from the first row of the quantity. Out of line, and given the members one by one, as
// this leaves the registers to the search for that row, with which most queries end.
[[gnu::noinline]] inline Slot FindBetterRow(Slot best, Slot end, WORD quantity, WORD subQuantity,
                                            short device, BYTE index, DWORD flags)
{
    const auto hasSubQuantity = [=](const k_QuantityDesc& row) {
        return row.Quantity == quantity && row.SubQuantity == subQuantity;
    };
    const auto hasDevice = [=](const k_QuantityDesc& row) {
        return hasSubQuantity(row) && row.Device == device;
    };
    const auto isEqual = [=](const k_QuantityDesc& row) {
        return hasDevice(row) && row.Index == index && row.Flags == flags;
    };
    Slot found = Scan(best, end, hasSubQuantity);
    if (found == nullptr)
        return best;
    best = found;
    found = Scan(best, end, hasDevice);
    if (found == nullptr)
        return best;
    best = found;
    found = Scan(best, end, isEqual);
    return found == nullptr ? best : found;
}

// The slot of the best row, or null. The first row of the best kind counts: all members equal; else Quantity,
// SubQuantity and Device; else Quantity and SubQuantity; else Quantity. Empty slots are skipped.
//
// One forward pass: each stage's condition implies the previous one, so each search continues where that one
// stopped.
FORCEINLINE Slot FindBestRow(const k_QuantityList& list, QuantityKey key)
{
    const Slot end = list.GetData() + list.GetSize();
    const Slot first =
        Scan(list.GetData(), end, [&key](const k_QuantityDesc& row) { return row.Quantity == key.Quantity; });
    if (first == nullptr)
        return nullptr;
    const k_QuantityDesc& row = *RowOf(first);
    const bool isEqual = row.SubQuantity == key.SubQuantity && row.Device == key.Device &&
                         row.Index == key.Index && row.Flags == key.Flags;
    if (__builtin_expect_with_probability(isEqual, true, 0.99))
        return first;
    return FindBetterRow(first, end, key.Quantity, key.SubQuantity, key.Device, key.Index, key.Flags);
}

} // namespace row_lookup
