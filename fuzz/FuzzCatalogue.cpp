// The catalogue's entries.
#include "FuzzCatalogue.h"

namespace fuzz
{

std::vector<test::UnitEntry> CatalogueEntries()
{
    return {
        {.Quantity = 1},
        {.Quantity = 2, .Index = 1},
        {.Quantity = 2, .Index = 2},
        {.Quantity = 3, .SubQuantity = 1, .Flags = 1},
        {.Quantity = 3, .SubQuantity = 2, .Index = 4},
        {.Device = 5, .Quantity = 4, .SubQuantity = 1},
        {.Device = 65535, .Quantity = 4, .SubQuantity = 1},
    };
}

} // namespace fuzz
