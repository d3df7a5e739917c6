// The quantities in memory: the list as five parallel arrays, and the texts by key.
#pragma once

#include "UnitCatalogueLine.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace mensura
{

struct QuantityKey {
    std::uint16_t Quantity = 0;
    std::uint16_t SubQuantity = 0; // MENSURA_WHOLE_QUANTITY for the quantity as a whole
    std::uint16_t Device = 0;
    std::uint16_t Index = 0;
    std::uint32_t Flags = 0;
};

struct QuantityTexts {
    std::u16string Symbol;
    std::u16string Name;
    std::u16string SymbolAndName; // "symbol (name)", the symbol alone without a name
};

// One array for each member of the key, in the order of the catalogue's lines.
struct QuantityArrays {
    std::vector<std::uint16_t> Devices;
    std::vector<std::uint16_t> Quantities;
    std::vector<int> SubQuantities;
    std::vector<std::uint16_t> Indexes;
    std::vector<std::uint32_t> Flags;
};

class UnitCatalogue
{
public:
    // Every table that is built from the list has a row for each line; this bounds them all.
    static constexpr std::size_t MaxLines = 65535;

    // False, and nothing added, when the catalogue is full. Lines with equal keys are all listed; the first
    // one's texts count.
    bool Add(UnitCatalogueLine line);

    // The texts of the best match, in this order: the equal entry; the first entry with equal quantity,
    // sub-quantity and device; the quantity as a whole on this device; the same on any device; the first
    // entry of the quantity. Null if the catalogue doesn't have the quantity.
    const QuantityTexts* Find(const QuantityKey& key) const;

    QuantityArrays& Arrays() { return m_arrays; }

private:
    // A key with wildcards. Its members are wide enough for a value that no key has.
    struct Pattern {
        std::uint32_t Quantity;
        std::uint32_t SubQuantity;
        std::uint32_t Device;
        std::uint32_t Index;
        std::uint64_t Flags;
        auto operator<=>(const Pattern&) const = default; // NOLINT(modernize-use-nullptr): no pointers
    };
    static constexpr std::uint32_t Any = 0xFFFFFFFF;
    static constexpr std::uint64_t AnyFlags = 0xFFFFFFFFFF;

    void AddEntry(const UnitCatalogueLine& line, std::size_t position);

    QuantityArrays m_arrays;
    std::vector<QuantityTexts> m_texts;
    std::map<Pattern, std::size_t> m_positions; // in m_texts, of the first line that matches the pattern
};

} // namespace mensura
