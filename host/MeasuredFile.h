// MeasuredFile.h: a file of measured data: a head line, then one line a point of time. The first column is
// the time, every other one a curve.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace atlashost
{

struct MeasuredColumn {
    std::string header;       // as it stands in the file, without blanks around it
    std::size_t readings = 0; // fields with a number
    std::size_t missing = 0;  // empty fields, fields that are not there, and fields that are no number
};

struct MeasuredFile {
    std::vector<MeasuredColumn> columns; // without the time
    std::size_t rows = 0;
    std::vector<std::string> remarks; // what is wrong in single lines: "12: ...", fit to be printed
};

// Reads a file of comma-separated values. Throws std::runtime_error, whose text says what is wrong in a form
// that can be printed: where the file cannot be read, is not a regular one, is larger than 64 MiB, or has no
// curve.
MeasuredFile ReadMeasuredFile(const std::string& path);

} // namespace atlashost
