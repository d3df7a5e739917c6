// The outside of the model in a test: a unit library that reports what the test says, and whose text for a
// quantity is the numbers that it was asked with, in their order, and a point between two. The module's
// objects that the model reaches are defined here too.
#pragma once

#include <model/StyleAtlasLookup.h>

#include <vector>

namespace test
{

// An entry of the unit library's list, as wide as the library reports it.
struct UnitEntry {
    WORD Device = 0;
    WORD Quantity = 0;
    int SubQuantity = 0;
    WORD Index = 0;
    DWORD Flags = 0;
};

// What GetUnitQuantities gives from now on.
void SetUnits(std::vector<UnitEntry> entries);

// Quantities 1 to count without sub-quantities: each becomes a row of its own.
std::vector<UnitEntry> SingleQuantities(WORD count);

} // namespace test
