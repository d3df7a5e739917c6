// PlotData.h: what a plot shows, apart from any picture: panels, and the curves in them.
#pragma once

#include "InputFiles.h"
#include "MeasuredFile.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace atlashost
{

// Both ends inside.
struct Range {
    double low = 0;
    double high = 0;

    // The place of a value as a share of the range, 0 at its low end, 1 at its high one.
    double ShareOf(double value) const { return (value - low) / (high - low); }
};

// The range with room to divide: a range of one value, or of values that differ by rounding alone, is
// widened. Its ends stay clear of what overflows.
Range Divisible(Range range);

struct Reading {
    double time = 0;
    double value = 0; // NaN where a reading is missing
};

bool IsGap(const Reading& reading);

struct Curve {
    std::string fileName;
    styleatlas::Style style;
    std::vector<Reading> readings; // in the order of time, downsampled for the largest picture
    std::size_t readingCount = 0;  // before that, without gaps
    styleatlas::Key key;
    int fileColumn = 0;
};

// The curves of one quantity over one kind of time.
struct Panel {
    std::string title; // the quantity's name without the unit
    std::string unit;  // empty where the name ends with none
    TimeKind timeKind = TimeKind::Row;
    std::string timeTitle; // as the first file heads it
    Range times;           // that of all panels with which the panel has some time in common; divisible
    Range values;          // divisible
    std::vector<Curve> curves;
};

struct Plot {
    std::vector<Panel> panels; // in the order in which their quantities turned up
    int status = 0;            // Failed where a file could not be read, else Succeeded
};

// Reads the files and asks the style atlas for the style of each curve. A column without readings makes no
// curve; one without a style is drawn as a plain black line.
Plot ReadPlot(std::span<const char* const> paths, const Teller& tell);

// Asks the style atlas for the styles of all curves again.
void RenewStyles(Plot& plot);

// The readings that a picture of so many pixel columns can show: of a column with more than maxPerColumn
// readings, the first, the lowest, the highest and the last are kept. A gap within one column is dropped. The
// readings must be in the order of time.
std::vector<Reading> Downsampled(std::span<const Reading> readings, Range times, int columns,
                                 std::size_t maxPerColumn);

// The column of pixels in which a time is drawn, from 0 up to, not including, columns.
int ColumnOf(double time, Range times, int columns);

} // namespace atlashost
