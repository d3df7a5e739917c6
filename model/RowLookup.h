// The search for the row of a quantity, inlined into the export: a host calls it for each curve that it
// draws, and a function call would cost as much as a short search.
#pragma once

#include "QuantityList.h"

// Returns the index of the best row, or -1. The first row of the best kind counts: all members equal; else
// Quantity, SubQuantity and Device; else Quantity and SubQuantity; else Quantity. Empty slots are skipped.
//
// One forward pass: each stage's condition implies the previous one, so each search continues where that one
// stopped.
FORCEINLINE INT_PTR FindBestRow(const k_QuantityList& list, QuantityKey key)
{
    const INT_PTR n = list.GetSize();
    void* const* const rows = list.GetData();
    const auto scan = [rows, n](INT_PTR from, auto passes) -> INT_PTR {
        for (INT_PTR i = from; i < n; ++i) {
            const k_QuantityDesc* const pRow = static_cast<const k_QuantityDesc*>(rows[i]);
            if (pRow != nullptr && passes(*pRow))
                return i;
        }
        return -1;
    };
    const auto hasQuantity = [&key](const k_QuantityDesc& row) { return row.Quantity == key.Quantity; };
    const auto hasSubQuantity = [&](const k_QuantityDesc& row) {
        return hasQuantity(row) && row.SubQuantity == key.SubQuantity;
    };
    const auto hasDevice = [&](const k_QuantityDesc& row) {
        return hasSubQuantity(row) && row.Device == key.Device;
    };
    const auto isEqual = [&](const k_QuantityDesc& row) {
        return hasDevice(row) && row.Index == key.Index && row.Flags == key.Flags;
    };

    INT_PTR best = scan(0, hasQuantity);
    if (best < 0)
        return -1;
    if (isEqual(*static_cast<const k_QuantityDesc*>(rows[best])))
        return best; // most quantities have one row
    INT_PTR found = scan(best, hasSubQuantity);
    if (found < 0)
        return best;
    best = found;
    found = scan(best, hasDevice);
    if (found < 0)
        return best;
    best = found;
    found = scan(best, isEqual);
    return found < 0 ? best : found;
}
