// Catalogue.h: the table of quantities in memory: the list as five parallel arrays, and the texts by key.
#pragma once

#include "CatalogueLine.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace mensura
{

struct QuantityKey {
    std::uint16_t quantity = 0;
    std::uint16_t subQuantity = 0; // MENSURA_WHOLE_QUANTITY for the quantity as a whole
    std::uint16_t device = 0;
    std::uint16_t index = 0;
    std::uint32_t flags = 0;
};

struct QuantityTexts {
    std::u16string symbol;
    std::u16string name;
    std::u16string symbolAndName; // "symbol (name)", the symbol alone where there is no name
};

// One array a member of the key, in the order of the catalogue's lines.
struct QuantityArrays {
    std::vector<std::uint16_t> devices;
    std::vector<std::uint16_t> quantities;
    std::vector<int> subQuantities;
    std::vector<std::uint16_t> indexes;
    std::vector<std::uint32_t> flags;
};

class Catalogue
{
public:
    // Every line becomes a row of each table that is built from the list; this bounds them all.
    static constexpr std::size_t MaxLines = 65535;

    // Takes over one line; false, and nothing taken, where the catalogue is full. Of two lines with an equal
    // key both stand in the list, and the texts are those of the first.
    bool Add(CatalogueLine line);

    // The texts that fit the key best: those of the equal entry; else of the first entry with equal quantity,
    // sub-quantity and device; else of the quantity as a whole, on this device before any device; else of the
    // first entry of the quantity. Null where the catalogue does not have the quantity.
    const QuantityTexts* Find(const QuantityKey& key) const;

    QuantityArrays& Arrays() { return m_arrays; }

private:
    // A key in which any member can be left open. Wide enough for a value that no member can have.
    struct Pattern {
        std::uint32_t quantity;
        std::uint32_t subQuantity;
        std::uint32_t device;
        std::uint32_t index;
        std::uint64_t flags;
        auto operator<=>(const Pattern&) const = default; // NOLINT(modernize-use-nullptr): no pointers
    };
    static constexpr std::uint32_t Any = 0xFFFFFFFF;
    static constexpr std::uint64_t AnyFlags = 0xFFFFFFFFFF;

    void AddEntry(const CatalogueLine& line, std::size_t position);

    QuantityArrays m_arrays;
    std::vector<QuantityTexts> m_texts;
    std::map<Pattern, std::size_t> m_positions; // of the first line that fits each pattern, in m_texts
};

} // namespace mensura
