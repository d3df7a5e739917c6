// The catalogue that layout files are read into, by the fuzzer and by what creates its seeds.
#pragma once

#include <ScriptedModel.h>

namespace fuzz
{

// A single quantity, a group with indexes, one with sub-quantities, and one of two devices: each kind of row.
inline std::vector<test::UnitEntry> CatalogueEntries()
{
    return {{.Quantity = 1},
            {.Quantity = 2, .Index = 1},
            {.Quantity = 2, .Index = 2},
            {.Quantity = 3, .SubQuantity = 1, .Flags = 1},
            {.Quantity = 3, .SubQuantity = 2, .Index = 4},
            {.Device = 5, .Quantity = 4, .SubQuantity = 1},
            {.Device = 65535, .Quantity = 4, .SubQuantity = 1}};
}

} // namespace fuzz
