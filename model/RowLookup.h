// The search for the row of a quantity. It is inline in the export, which a host calls for each curve that it
// draws: a call of its own would cost as much as a short search.
#pragma once

#include "QuantityList.h"

// The index of the first row that is equal; else of the first with equal Quantity, SubQuantity and Device;
// else with equal Quantity and SubQuantity; else with equal Quantity; else -1. Empty slots are passed over.
//
// One forward pass: each stage's test contains the one before it, so it goes on where that one stopped.
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
        return best; // of most quantities there is one row
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
