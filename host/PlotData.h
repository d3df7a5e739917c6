// The content of a plot: panels, and the curves in them.
#pragma once

#include "InputFiles.h"
#include "MeasuredFile.h"

#include <cmath>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace atlashost
{

// Includes both ends.
struct Range {
    double low = 0;
    double high = 0;

    // 0 for a value at the low end, 1 for one at the high end.
    double ShareOf(double value) const { return (value - low) / (high - low); }
    double At(double share) const { return low + share * (high - low); }

    bool operator==(const Range&) const = default;
};

// The range, widened if its ends are equal but for rounding, and bounded so that sums and differences of its
// ends don't overflow.
Range Divisible(Range range);

struct Reading {
    double time = 0;
    double value = 0; // NaN where a reading is missing
};

inline bool IsGap(const Reading& reading)
{
    return std::isnan(reading.value);
}

struct Curve {
    std::string fileName;
    styleatlas::Style style;
    std::vector<Reading> readings; // in the order of time
    std::size_t readingCount = 0;  // without gaps
    styleatlas::Key key;
    int fileColumn = 0;
};

// The curves of one quantity over one kind of time.
struct Panel {
    std::string title; // the quantity's name without the unit
    std::string unit;  // empty if the name has none
    TimeKind timeKind = TimeKind::Row;
    std::string timeTitle; // as the first file heads it
    Range times;           // shared by all panels whose times overlap; divisible
    Range values;          // divisible
    std::vector<Curve> curves;
};

struct Plot {
    std::vector<Panel> panels; // in the order of their first curves
    int status = 0;            // Failed if a file could not be read, else Succeeded
};

// Reads the files and asks the style atlas for the style of each curve. A column without readings makes no
// curve; a curve without a style is a plain black line.
Plot ReadPlot(std::span<const char* const> paths, const Report& report, const FileProgress& progress = {});

// The readings between two times, and one more on either side for the line that leads there.
std::span<const Reading> ReadingsAround(std::span<const Reading> readings, Range times);

// Asks the style atlas for the styles of all curves again.
void RenewStyles(Plot& plot);

} // namespace atlashost
