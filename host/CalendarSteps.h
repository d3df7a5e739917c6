// CalendarSteps.h: the even steps of clock and calendar.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace atlashost
{

struct CalendarTick {
    double time = 0; // as in Calendar.h
    std::string label;
};

// Says whether labels of so many characters have room, if they stand so many seconds apart.
using LabelsFit = std::function<bool(double seconds, std::size_t characters)>;

// The ticks from one time to another, in the smallest step of which the labels fit. A label leaves out the
// year before a day, and the date before a time of day, where it is the same as at the tick before.
std::vector<CalendarTick> CalendarTicks(double from, double to, const LabelsFit& fit);

} // namespace atlashost
