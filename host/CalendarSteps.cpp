#include "CalendarSteps.h"

#include "Calendar.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace atlashost
{
namespace
{

// The forms of labels and the parts that a label omits if the previous tick has the same.
constexpr std::string_view YearForm = "1973";
constexpr std::string_view MonthForm = "1973-05";
constexpr std::string_view YearPart = "1973-";
constexpr std::string_view DayForm = "05-01";
constexpr std::string_view DatePart = "1973-05-01 ";
constexpr std::string_view MinuteForm = "07:30";
constexpr std::string_view SecondForm = "07:30:15";

constexpr int MaxDecimals = 6; // of seconds
constexpr int FinestFactors[] = {1, 2, 5};

// Each divides a day, so that each day begins with a tick.
constexpr int SecondSteps[] = {1,   2,   5,    10,   15,   30,    60,    120,  300,
                               600, 900, 1800, 3600, 7200, 10800, 21600, 43200};

// Steps of days start anew each month; a last step shorter than two thirds is omitted.
struct DayStep {
    int days;
    int minDistance; // at the end of a February
};
constexpr DayStep DaySteps[] = {{1, 1}, {2, 2}, {5, 4}, {10, 8}, {15, 13}};
constexpr int DaysOfShortestMonth = 28;
constexpr int MonthSteps[] = {1, 2, 3, 6};
constexpr int YearSteps[] = {1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000};
constexpr double SecondsOfMonth = DaysOfShortestMonth * SecondsOfDay;
constexpr double SecondsOfYear = 365 * SecondsOfDay;

using std::chrono::months;
using std::chrono::year_month;

std::vector<CalendarTick> ClockTicks(double from, double to, double step, int decimals)
{
    std::vector<CalendarTick> ticks;
    const Seconds seconds = step < 60 ? Seconds::Shown : Seconds::Hidden;
    const auto first = static_cast<std::int64_t>(std::ceil(from / step));
    const auto last = static_cast<std::int64_t>(std::floor(to / step));
    std::string dateBefore;
    for (std::int64_t i = first; i <= last; ++i) {
        const double time = static_cast<double>(i) * step;
        // Rounding may have put the time slightly below the step.
        const double shown = time + step / 1000;
        const std::string date = DateText(shown);
        const std::string timeOfDay = TimeOfDayText(shown, seconds, decimals);
        ticks.push_back({time, date == dateBefore ? timeOfDay : date + " " + timeOfDay});
        dateBefore = date;
    }
    return ticks;
}

// Calls add(day) for the first day of each step of months between two times. Steps are aligned to the year.
template <class Add> void ForEachMonth(double from, double to, int step, const Add& add)
{
    const std::chrono::year_month_day day = DayOf(from);
    const auto count =
        static_cast<int>(static_cast<unsigned>(day.month())) - 1 + 12 * static_cast<int>(day.year());
    const auto monthAt = [](int i) {
        return year_month{std::chrono::year{i / 12}, std::chrono::January} + months{i % 12};
    };
    for (int i = count - count % step; StartOf(monthAt(i) / std::chrono::day{1}) <= to; i += step)
        add(monthAt(i));
}

std::vector<CalendarTick> MonthTicks(double from, double to, int step, std::string_view form)
{
    std::vector<CalendarTick> ticks;
    ForEachMonth(from, to, step, [&](year_month month) {
        const double time = StartOf(month / std::chrono::day{1});
        if (time >= from)
            ticks.push_back({time, DateText(time).substr(0, form.size())});
    });
    return ticks;
}

std::vector<CalendarTick> DayTicks(double from, double to, int step)
{
    std::vector<CalendarTick> ticks;
    ForEachMonth(from, to, 1, [&](year_month month) {
        const auto length = static_cast<int>(static_cast<unsigned>((month / std::chrono::last).day()));
        for (int day = 0; 3 * (length - day) >= 2 * step; day += step) {
            const double time = StartOf(month / std::chrono::day{1}) + day * SecondsOfDay;
            if (time >= from && time <= to)
                ticks.push_back({time, DateText(time)});
        }
    });
    // Backwards, as each label is compared with the whole label before it.
    for (std::size_t i = ticks.size(); i-- > 1;) {
        if (ticks[i].label.starts_with(ticks[i - 1].label.substr(0, YearPart.size())))
            ticks[i].label.erase(0, YearPart.size());
    }
    return ticks;
}

} // namespace

std::vector<CalendarTick> CalendarTicks(double from, double to, const LabelsFit& fit)
{
    // At most one of two neighbouring labels is a full one.
    const auto fitsAlternating = [&fit](double seconds, std::size_t length, std::size_t partLength) {
        return fit(seconds, length + (partLength + 1) / 2);
    };
    for (int decimals = MaxDecimals; decimals > 0; --decimals) {
        const std::size_t length = SecondForm.size() + 1 + static_cast<std::size_t>(decimals);
        for (const int factor : FinestFactors) {
            if (const double step = factor * std::pow(10.0, -decimals);
                fitsAlternating(step, length, DatePart.size()))
                return ClockTicks(from, to, step, decimals);
        }
    }
    for (const int step : SecondSteps) {
        const std::size_t length = step < 60 ? SecondForm.size() : MinuteForm.size();
        if (fitsAlternating(step, length, DatePart.size()))
            return ClockTicks(from, to, step, 0);
    }
    for (const DayStep& step : DaySteps) {
        if (fitsAlternating(step.minDistance * SecondsOfDay, DayForm.size(), YearPart.size()))
            return DayTicks(from, to, step.days);
    }
    for (const int step : MonthSteps) {
        if (fit(step * SecondsOfMonth, MonthForm.size()))
            return MonthTicks(from, to, step, MonthForm);
    }
    const auto* const years = std::ranges::find_if(
        YearSteps, [&fit](int step) { return fit(step * SecondsOfYear, YearForm.size()); });
    const int step = years != std::end(YearSteps) ? *years : YearSteps[std::size(YearSteps) - 1];
    return MonthTicks(from, to, 12 * step, YearForm);
}

} // namespace atlashost
