// A file of measured data: a head line, then a line for each point of time. The first column
// is the time, each other column a curve.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace atlashost
{

// What the first column of a file holds, by its first field that is a date or a number; without one, the rows
// are numbered from 1.
enum class TimeKind { Row, Date, Number };

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

// Reads a file of comma-separated values. Throws std::runtime_error with a printable reason if the file can't
// be read, is not a regular file, is larger than 64 MiB, has more than 16 million fields (with those that
// short rows lack), or has no curve.
MeasuredFile ReadMeasuredFile(const std::string& path);

// The text without the blanks at its ends.
std::string_view WithoutBlanks(std::string_view text);

} // namespace atlashost
