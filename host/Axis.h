// Axis.h: where the ticks of an axis stand, and what is written at them.
#pragma once

#include "PlotData.h"

#include <string>
#include <vector>

namespace atlashost
{

struct Tick {
    double value = 0;
    std::string label; // plain ASCII
};

struct Axis {
    Range range;
    std::vector<Tick> ticks; // within the range, rising
};

// An axis for values: steps of 1, 2 or 5 times a power of ten, at most so many of them, and a range that
// begins and ends with a step. The range is a divisible one.
Axis ValueAxis(Range values, int mostSteps);

// An axis for times over the range as it is. The steps of dates are those of clock and calendar. The axis is
// so many pixels long, and its labels, of characters of the given width, stay clear of each other.
Axis TimeAxis(Range times, TimeKind kind, int length, int characterWidth);

} // namespace atlashost
