// The reader of measured files: its counts agree, and its times are valid.
#include "Fuzz.h"

#include <TempPrefix.h>
#include <algorithm>
#include <cmath>
#include <host/Calendar.h>
#include <host/MeasuredFile.h>

using namespace atlashost;
using fuzz::Require;

namespace
{

constexpr double yearTenThousand = 253402300800.0; // the last moments of 9999 are rounded to it

void RequireSound(const MeasuredFile& file)
{
    Require(file.times.size() == file.rows && !file.columns.empty(), "a row has no time");
    for (const MeasuredColumn& column : file.columns) {
        const auto readings = std::ranges::count_if(column.values, [](double v) { return !std::isnan(v); });
        Require(column.values.size() == file.rows && column.readings + column.missing == file.rows &&
                    static_cast<std::size_t>(readings) == column.readings,
                "the counts of a column disagree");
    }
    for (const double time : file.times) {
        if (file.timeKind != TimeKind::Date || std::isnan(time) || time >= yearTenThousand)
            continue;
        const auto again = ParseTime(DateText(time) + ' ' + TimeOfDayText(time, Seconds::Shown, 3));
        Require(again && *again <= time + 1e-4 && time - *again < 2e-3, "a point of time reads as another");
    }
}

} // namespace

void fuzz::Try(std::string_view bytes)
{
    static const test::TempPrefix prefix;
    const std::string path = prefix.Path() / "measured.csv";
    test::WriteWhole(path, bytes);
    try {
        RequireSound(ReadMeasuredFile(path));
    } catch (const std::runtime_error&) {
        return; // refused
    }
}
