// The reader of measured files: its counts agree, its points of time are those of a calendar, and a file that
// is written from what it read reads the same.
#include "Fuzz.h"

#include <TempPrefix.h>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <host/Calendar.h>
#include <host/MeasuredFile.h>

using namespace atlashost;
using fuzz::Require;

namespace
{

std::string Quoted(std::string_view text)
{
    std::string quoted = "\"";
    for (const char c : text)
        quoted += c == '"' ? "\"\"" : std::string(1, c);
    return quoted + '"';
}

std::string Number(double value)
{
    char text[32];
    return std::isnan(value) ? std::string()
                             : std::string(text, std::to_chars(text, std::end(text), value).ptr);
}

// As a number, whatever kind of time it is.
std::string Written(const MeasuredFile& file)
{
    std::string text = Quoted(file.timeHeader);
    for (const MeasuredColumn& column : file.columns)
        text += ',' + Quoted(column.header);
    for (std::size_t row = 0; row < file.rows; ++row) {
        text += '\n' + Number(file.times[row]);
        for (const MeasuredColumn& column : file.columns)
            text += ',' + Number(column.values[row]);
    }
    return text;
}

void RequireSound(const MeasuredFile& file)
{
    Require(file.times.size() == file.rows && !file.columns.empty(), "a row has no time");
    for (const MeasuredColumn& column : file.columns) {
        const auto missing = std::ranges::count_if(column.values, [](double v) { return std::isnan(v); });
        Require(column.values.size() == file.rows && column.readings + column.missing == file.rows &&
                    static_cast<std::size_t>(missing) == column.missing,
                "the counts of a column disagree");
    }
    for (const double time : file.times) {
        if (file.timeKind != TimeKind::Date || std::isnan(time))
            continue;
        const auto again = ParseTime(DateText(time) + ' ' + TimeOfDayText(time, Seconds::Shown, 3));
        Require(again && *again <= time + 1e-4 && time - *again < 2e-3, "a point of time reads as another");
    }
    for (const std::string& remark : file.remarks)
        Require(std::ranges::none_of(remark, [](unsigned char c) { return c < ' ' || c == 0x7F; }),
                "a remark can't be printed");
}

} // namespace

void fuzz::Try(std::string_view bytes)
{
    static const test::TempPrefix prefix;
    const std::string path = prefix.Path() / "measured.csv";
    test::WriteWhole(path, bytes);
    MeasuredFile file;
    try {
        file = ReadMeasuredFile(path);
    } catch (const std::runtime_error&) {
        return; // refused
    }
    RequireSound(file);
    const std::string written = Written(file);
    test::WriteWhole(path, written);
    const MeasuredFile again = ReadMeasuredFile(path);
    Require(again.remarks.empty() && Written(again) == written, "what was written reads as something else");
}
