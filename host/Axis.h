// The ticks of an axis and their labels.
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

// An axis for values: at most maxSteps steps of 1, 2 or 5 times a power of ten. Its range begins and ends
// with a step. The values must be a divisible range.
Axis ValueAxis(Range values, int maxSteps);

// The same over exactly the given range.
Axis ExactValueAxis(Range values, int maxSteps);

// An axis for times over exactly the given range, with clock and calendar steps for dates. Length and width
// of a character are in pixels; labels don't overlap.
Axis TimeAxis(Range times, TimeKind kind, int length, int characterWidth);

} // namespace atlashost
