// How well a row fits a quantity, to explain what FindBestRow has found.
#pragma once

#include "QuantityKey.h"

// The stages of FindBestRow. Each includes the ones before it.
enum k_RowFit { fitsNothing, fitsQuantity, fitsSubQuantity, fitsDevice, fitsAll };

// The last stage at which the search for a key can find a row.
constexpr k_RowFit FitOfRow(const QuantityKey& row, const QuantityKey& key)
{
    if (row.Quantity != key.Quantity)
        return fitsNothing;
    if (row.SubQuantity != key.SubQuantity)
        return fitsQuantity;
    if (row.Device != key.Device)
        return fitsSubQuantity;
    return row == key ? fitsAll : fitsDevice;
}
