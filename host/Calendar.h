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

// The order in which a date is written.
enum class DateOrder { YearFirst, DayFirst, MonthFirst };

// Reads a date with or without a time of day: "1973-05-01", "1973/5/1 7:30", "1973-05-01T07:30:15.25", and in
// the other orders "1.5.1973", "1/5/73 07:30" and the like. The date is parted by one of "-", "/" and ".";
// years are 0001 to 9999, those of two digits 1970 to 2069; "24-02-13", of which either end may be the year,
// is refused. The time of day may end with "AM" or "PM", with "Z" or an offset as "+01:00", which is not
// applied, and is "24:00" at the end of a day. Empty for anything else.
std::optional<double> ParseTime(std::string_view text, DateOrder order = DateOrder::YearFirst);

// Whether a text is a time of day alone, of those forms.
bool IsTimeOfDay(std::string_view text);

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
