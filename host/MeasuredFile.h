// MeasuredFile.h: a file of measured data: a head line, then one line a point of time. The first column is
// the time, every other one a curve.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace atlashost
{

// What the first column of a file holds. The first field that is a date or a number tells; with none, the
// rows are numbered from 1.
enum class TimeKind { Row, Date, Number };

struct MeasuredColumn {
    std::string header;         // as it stands in the file, without blanks around it
    std::size_t readings = 0;   // fields with a number
    std::size_t missing = 0;    // empty fields, fields that are not there, and fields that are no number
    std::vector<double> values; // one a row, NaN where it is missing
};

struct MeasuredFile {
    std::string timeHeader;
    TimeKind timeKind = TimeKind::Row;
    std::vector<double> times; // one a row: see Calendar.h for dates; NaN for a field of another kind
    std::vector<MeasuredColumn> columns; // without the time
    std::size_t rows = 0;
    std::vector<std::string> remarks; // what is wrong in single lines: "12: ...", fit to be printed
};

// Reads a file of comma-separated values. Throws std::runtime_error, whose text says what is wrong in a form
// that can be printed: where the file cannot be read, is not a regular one, is larger than 64 MiB, has more
// than 16 million fields (those that short rows lack are counted), or has no curve.
MeasuredFile ReadMeasuredFile(const std::string& path);

// The text without the blanks at its ends.
std::string_view WithoutBlanks(std::string_view text);

} // namespace atlashost
