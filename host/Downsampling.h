// The readings that a picture can show.
#pragma once

#include "PlotData.h"

#include <cstddef>
#include <span>
#include <vector>

namespace atlashost
{

// The readings that a picture of so many pixel columns can show: of a column with more than maxPerColumn
// readings and gaps, the first reading, the lowest, the highest and the last are kept. A gap within one
// column is dropped. The readings must be in the order of time; those outside of the range are in the
// outermost columns.
std::vector<Reading> Downsampled(std::span<const Reading> readings, Range times, int columns,
                                 std::size_t maxPerColumn);

// The pixel column of a time, from 0 to columns - 1.
int ColumnOf(double time, Range times, int columns);

} // namespace atlashost
