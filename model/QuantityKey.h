// The identity of a measured quantity.
#pragma once

#include <compare>
#include <windows.h>

// SubQuantity of a row that represents a whole group of a Quantity.
constexpr WORD k_GroupSubQuantity = 65535;

// As SubQuantity or Device in a search: any value matches.
constexpr WORD k_Any = 65535;

struct QuantityKey {
    WORD Quantity = 0;
    WORD SubQuantity = 0; // 0 to 255 for a quantity of the unit library, 65535 for a group row
    BYTE Index = 0;
    short Device = 0; // -1: no device
    DWORD Flags = 0;

    auto operator<=>(const QuantityKey&) const = default; // NOLINT(modernize-use-nullptr): no pointers
};
