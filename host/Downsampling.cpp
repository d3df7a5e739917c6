#include "Downsampling.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

namespace atlashost
{
namespace
{

// The end of the readings at the beginning that fulfil the condition, which no reading behind them does.
// Doubles its steps first: most columns hold few of the readings that are left.
template <class Condition>
std::span<const Reading>::iterator EndOf(std::span<const Reading> readings, const Condition& holds)
{
    std::size_t within = 0;
    std::size_t step = 1;
    for (; step < readings.size() && holds(readings[step]); step *= 2)
        within = step;
    const std::span<const Reading> rest = readings.subspan(within, std::min(step, readings.size()) - within);
    return readings.begin() + static_cast<std::ptrdiff_t>(within) +
           (std::ranges::partition_point(rest, holds) - rest.begin());
}

// Appends the readings to keep of one column, in the order of time. The first and the last are no gaps.
void KeepColumn(std::span<const Reading> column, std::size_t maxCount, std::vector<Reading>& kept)
{
    const auto isReading = [](const Reading& reading) { return !IsGap(reading); };
    if (column.size() <= maxCount) {
        std::ranges::copy_if(column, std::back_inserter(kept), isReading);
        return;
    }
    const Reading* lowest = &column.front();
    const Reading* highest = lowest;
    for (const Reading& reading : column) { // comparing with a gap is false
        if (reading.value < lowest->value)
            lowest = &reading;
        else if (reading.value > highest->value)
            highest = &reading;
    }
    kept.insert(kept.end(),
                {column.front(), *std::min(lowest, highest), *std::max(lowest, highest), column.back()});
}

} // namespace

int ColumnOf(double time, Range times, int columns)
{
    const double share = std::clamp(times.ShareOf(time), 0.0, 1.0);
    return static_cast<int>(std::lround(share * (columns - 1)));
}

std::vector<Reading> Downsampled(std::span<const Reading> readings, Range times, int columns,
                                 std::size_t maxPerColumn)
{
    std::vector<Reading> result;
    while (true) {
        const auto first = std::ranges::find_if_not(readings, IsGap);
        if (first == readings.end())
            return result;
        if (first != readings.begin() && !result.empty())
            result.push_back(readings.front());
        readings = {first, readings.end()};
        const int number = ColumnOf(readings.front().time, times, columns);
        const auto end = EndOf(readings, [&](const Reading& reading) {
            return ColumnOf(reading.time, times, columns) == number;
        });
        auto last = end - 1;
        while (IsGap(*last))
            --last;
        KeepColumn({readings.begin(), last + 1}, maxPerColumn, result);
        readings = {last + 1, readings.end()};
    }
}

} // namespace atlashost
