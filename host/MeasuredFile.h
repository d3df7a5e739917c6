// A file of measured data: headings, then a line for each point of time. The first column is the time, each
// other column a curve.
#pragma once

#include "FileContent.h"
#include "FileForm.h"
#include "TimeColumn.h"

#include <cstddef>
#include <string>
#include <vector>

namespace atlashost
{

struct MeasuredColumn {
    std::string header;         // as in the file, without blanks around it
    std::size_t readings = 0;   // fields with a number
    std::size_t missing = 0;    // empty and absent fields, and fields that are no number
    std::vector<double> values; // one for each row, NaN if missing
};

struct MeasuredFile {
    std::string timeHeader;
    TimeKind timeKind = TimeKind::Row;
    std::vector<double> times; // one for each row, dates as in Calendar.h; NaN for a field of another kind
    std::vector<MeasuredColumn> columns; // without the time
    std::size_t rows = 0;
    std::vector<std::string> remarks; // errors in single lines, "12: ...", printable
};

// Reads a text file in columns, whose form it finds by looking at it. A time of day beside a date belongs to
// it. Throws std::runtime_error with a printable reason if the file can't be read, is not a regular file of
// text, is larger than 64 MiB, has more than 16 million fields (with those that short rows lack), has no
// headings or no curve, or if the progress says to stop.
MeasuredFile ReadMeasuredFile(const std::string& path, const HeadingTest& isQuantity = {},
                              const Progress& progress = {});

} // namespace atlashost
