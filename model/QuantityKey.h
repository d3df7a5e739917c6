// The identity of a measured quantity.
#pragma once

#include <windows.h>

// SubQuantity of the row that stands for a whole group of a Quantity.
constexpr WORD k_GroupSubQuantity = 65535;

// As the SubQuantity or the Device of a search: any.
constexpr WORD k_Any = 65535;

struct QuantityKey {
    WORD Quantity = 0;
    WORD SubQuantity = 0; // 0 to 255 for a quantity of the unit library, 65535 for a group row
    BYTE Index = 0;
    short Device = 0; // -1: no device
    DWORD Flags = 0;

    friend bool operator==(const QuantityKey&, const QuantityKey&) = default;
};
