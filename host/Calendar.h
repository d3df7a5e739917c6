// Points of time in files and on axes.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace atlashost
{

// Points of time are seconds since 1970-01-01 00:00 local time: files name no time zone, and none is applied.
constexpr double SecondsOfDay = 86400;

// Reads "1973-05-01", "1973-05-01 07:30", "1973-05-01T07:30:15.25" and the like, with or without a "Z" after
// the time of day; years 0001 to 9999. Empty for anything else.
std::optional<double> ParseTime(std::string_view text);

// The day of a point of time, and the point of time at which a day begins.
std::chrono::year_month_day DayOf(double time);
double StartOf(std::chrono::year_month_day day);

// "1973-05-01"
std::string DateText(double time);

// "07:30" without seconds, "07:30:15" with them, "07:30:15.250" with three decimals. Not rounded: the rest is
// cut off.
enum class Seconds { Hidden, Shown };
std::string TimeOfDayText(double time, Seconds seconds, int decimals);

} // namespace atlashost
