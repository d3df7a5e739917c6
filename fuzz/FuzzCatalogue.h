// What the fuzzer and its seeds have in common: the catalogue that the layout file is laid over.
#pragma once

#include <ScriptedModel.h>

namespace fuzz
{

// A single quantity, a group with indexes, one with sub-quantities, and one of two devices: each kind of row.
std::vector<test::UnitEntry> CatalogueEntries();

} // namespace fuzz
