// LayoutWords.h: the contents of a layout file in words.
#pragma once

#include "LayoutFile.h"

#include <cstddef>
#include <string>
#include <utility>

namespace atlashost
{

// "damaged at byte 8: ..."
std::string DamageWords(const LayoutDamage& damage);

// "version 1, 32 file columns"
std::string HeadWords(const LayoutFile& file);

// "O_3: device 1, quantity 10, sub-quantity 2, index 0, flags 0x0"; without the symbol where the unit library
// does not know the quantity.
std::string IdentityWords(const RowIdentity& identity);

// "level 0, 32 records"
std::string RowWords(const LayoutRow& row);

// How the curve is drawn, and what of the record is of no use for that but is not 0.
std::string RecordWords(const LayoutRecord& record);

// The fields in which the record is unlike another, as the numbers that they are.
std::string FieldWords(const LayoutRecord& record, const LayoutRecord& other);

// "file column 3", "file columns 0 to 3"
std::string ColumnWords(std::size_t first, std::size_t last);

// Calls use(first, last, key) for each run of neighbours, of the numbers from 0 up to count, with equal keys.
template <class KeyOf, class Use> void ForEachRun(std::size_t count, KeyOf keyOf, Use use)
{
    if (count == 0)
        return;
    std::size_t first = 0;
    auto key = keyOf(first);
    for (std::size_t i = 1; i < count; ++i) {
        auto next = keyOf(i);
        if (next == key)
            continue;
        use(first, i - 1, key);
        first = i;
        key = std::move(next);
    }
    use(first, count - 1, key);
}

} // namespace atlashost
