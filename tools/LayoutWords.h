// The contents of a layout file in words.
#pragma once

#include "LayoutContents.h"

#include <bindings/terminal/StyleWords.h>

#include <cstddef>
#include <string>

namespace atlaslayout
{

using styleatlas::terminal::InEnglish;
using styleatlas::terminal::Translator;

// "version 1, 32 file columns"
std::string HeadWords(const LayoutHead& head);

// "O_3: device 1, quantity 10, sub-quantity 2, index 0, flags 0x0"; without the symbol if the unit library
// doesn't know the quantity.
std::string KeyWords(const QuantityKey& key, Translator text = InEnglish);

// "level 0, 32 records"
std::string RowWords(const LayoutRow& row);

// The style, and the unused fields that are not 0.
std::string RecordWords(const LayoutRecord& record);

// The numbers of the fields in which the record differs from the other.
std::string FieldWords(const LayoutRecord& record, const LayoutRecord& other);

// "file column 3", "file columns 0 to 3"
std::string ColumnWords(std::size_t first, std::size_t last, Translator text = InEnglish);

} // namespace atlaslayout
