// The unit library of a test, set when the program starts: it reports the quantities that the test sets, and
// its text for a quantity is the numbers that it was asked with, in their order, with points between them.
#pragma once

#include <model/StyleAtlas.h>

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
