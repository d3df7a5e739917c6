// Calendar.h: points of time, as they stand in files and on axes.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace atlashost
{

// Points of time are seconds since 1970-01-01 00:00 by the clock of whoever measured: files name no time
// zone, and none is applied.
constexpr double SecondsOfDay = 86400;

// Reads "1973-05-01", "1973-05-01 07:30", "1973-05-01T07:30:15.25" and the like, with or without a "Z" after
// the time of day; years 0001 to 9999. Empty for anything else.
std::optional<double> ParseTime(std::string_view text);

// The day on which the point of time lies, and the point of time at which a day begins.
std::chrono::year_month_day DayOf(double time);
double StartOf(std::chrono::year_month_day day);

// "1973-05-01"
std::string DateText(double time);

// "07:30" without seconds, "07:30:15" with them and no decimals, "07:30:15.250" with three. What is not shown
// is cut off.
enum class Seconds { Hidden, Shown };
std::string TimeOfDayText(double time, Seconds seconds, int decimals);

} // namespace atlashost
