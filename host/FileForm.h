// The form of a text file of measured data, found by looking at its first lines.
#pragma once

#include "CsvReader.h"
#include "Number.h"

#include <functional>
#include <optional>
#include <string_view>

namespace atlashost
{

// Whether a heading names a quantity.
using HeadingTest = std::function<bool(std::string_view heading)>;

struct FileForm {
    char separator = ',';
    DecimalMark decimalMark = DecimalMark::Unknown;
    std::optional<CsvReader::Position> headings; // may be of a comment; nothing if there are none
    std::optional<CsvReader::Position> firstRow; // nothing if none was seen: what follows the headings
    std::size_t fieldCount = 0;                  // of that row
    bool hasTimeOfDay = false;                   // in the second column, beside the date
};

// Looks at 200 lines or 32 KiB at most. The separator is that by which most text can be read as dates and
// numbers. Of the lines above the first row, comments among them, the headings are those which name most
// quantities; lines of units and other text about them hold no data.
FileForm FindForm(std::string_view content, const HeadingTest& isQuantity);

} // namespace atlashost
