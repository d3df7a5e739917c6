// The even steps of clock and calendar.
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

// Whether labels of so many characters fit at a distance of so many seconds.
using LabelsFit = std::function<bool(double seconds, std::size_t characters)>;

// The ticks between two times, in the smallest step whose labels fit. A label omits the year before a day,
// and the date before a time of day, if the previous tick has the same.
std::vector<CalendarTick> CalendarTicks(double from, double to, const LabelsFit& fit);

} // namespace atlashost
