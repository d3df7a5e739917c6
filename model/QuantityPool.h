// The quantities that a catalogue build has still to place.
#pragma once

#include "QuantityKey.h"

#include <afxtempl.h>

// An array of separately allocated keys, which it owns. Its order is the order of the rows to come.
class k_QuantityPool : public CTypedPtrArray<CPtrArray, QuantityKey*>
{
public:
    k_QuantityPool() = default;
    ~k_QuantityPool() override;

    // Appends a new record.
    void AddRecord(const QuantityKey& key);
};
