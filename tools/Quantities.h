// Quantities as they stand on a command line.
#pragma once

#include <model/QuantityKey.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace atlaslayout
{

constexpr short NoDevice = -1;

// A whole decimal number or, with 0x, a hexadecimal one; nothing if the text is something else, or the number
// is not from min to max.
std::optional<long long> ParseNumber(std::string_view text, long long min, long long max);

// "3" or "0-3", a first and a last number up to max, in this order.
struct NumberRange {
    int first;
    int last;
};
std::optional<NumberRange> ParseRange(std::string_view text, int max);

// The symbol of a quantity; empty if the unit library doesn't know it.
std::string SymbolOf(const QuantityKey& key);

// The quantities that the unit library lists under a symbol, and those in groups of that symbol.
struct NamedQuantities {
    std::vector<QuantityKey> own;
    std::vector<QuantityKey> inGroups;
};
NamedQuantities QuantitiesOf(std::string_view symbol);

// A key as QUANTITY[,SUB-QUANTITY[,INDEX[,DEVICE[,FLAGS]]]], or the symbol of quantities. Throws UsageError
// if the text is neither.
std::vector<QuantityKey> ParseKeys(const char* text);

// The key for ParseKeys: "10,2,0,1,0x0"
std::string KeyText(const QuantityKey& key);

} // namespace atlaslayout
