#include "PlotData.h"

#include "Calendar.h"
#include "Texts.h"

#include <bindings/terminal/Text.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <tuple>
#include <utility>

namespace atlashost
{
namespace
{

using styleatlas::terminal::Printable;

constexpr std::size_t MaxReadings = 32'000'000;
constexpr double MaxValue = 1e300;   // sums and differences of such numbers don't overflow
constexpr double MinSize = 1e-290;   // fractions of such a number don't underflow
constexpr double Resolution = 1e-13; // relative; closer values are equal but for rounding

// "Wind speed, mean of 07:00 and 10:00, mph" is a title and a unit.
std::pair<std::string, std::string> TitleAndUnit(const MeasuredQuantity& quantity)
{
    const std::string_view name = quantity.name.empty() ? quantity.symbol : quantity.name;
    const std::size_t comma = name.rfind(',');
    if (comma == std::string_view::npos)
        return {Printable(name), {}};
    return {Printable(WithoutBlanks(name.substr(0, comma))),
            Printable(WithoutBlanks(name.substr(comma + 1)))};
}

// Short names to save room; files with the same name are shown with their folders.
std::vector<std::string> FileNames(std::span<const char* const> paths)
{
    const auto shortName = [](std::string_view path) {
        path.remove_prefix(path.rfind('/') + 1);
        constexpr std::string_view Extension = ".csv";
        if (path.size() > Extension.size() && path.ends_with(Extension))
            path.remove_suffix(Extension.size());
        return path;
    };
    std::map<std::string_view, int> counts;
    for (const char* const path : paths)
        ++counts[shortName(path)];
    std::vector<std::string> names;
    for (const char* const path : paths)
        names.push_back(Printable(counts[shortName(path)] == 1 ? shortName(path) : path));
    return names;
}

std::vector<Reading> ReadingsInOrder(std::span<const double> times, std::span<const double> values)
{
    std::vector<Reading> readings;
    readings.reserve(values.size());
    for (std::size_t row = 0; row < values.size(); ++row) {
        if (!std::isnan(times[row]))
            readings.push_back({times[row], values[row]});
    }
    if (!std::ranges::is_sorted(readings, {}, &Reading::time))
        std::ranges::stable_sort(readings, {}, &Reading::time);
    return readings;
}

void Extend(std::optional<Range>& range, double value)
{
    range = range ? Range{std::min(range->low, value), std::max(range->high, value)} : Range{value, value};
}

Range DivisibleTimes(Range times, TimeKind kind)
{
    if (kind == TimeKind::Date && times.low == times.high)
        return {times.low - SecondsOfDay / 2, times.high + SecondsOfDay / 2};
    return Divisible(times);
}

void RenewStyle(Curve& curve)
{
    curve.style = styleatlas::StyleOf(curve.fileColumn, curve.key).value_or(styleatlas::Style{});
}

class PlotMaker
{
public:
    PlotMaker(std::span<const char* const> paths, const Report& report)
        : m_fileNames{FileNames(paths)}, m_report{report}
    {
    }

    void AddFile(InputFile& file)
    {
        const MeasuredFile& content = file.content;
        if (const auto count = std::ranges::count_if(content.times, [](double t) { return std::isnan(t); }))
            m_report(content.timeKind == TimeKind::Date
                         ? Text("%1: rows left out, as their first field is no date: %2",
                                {file.shownPath, std::to_string(count)})
                         : Text("%1: rows left out, as their first field is no number: %2",
                                {file.shownPath, std::to_string(count)}));
        for (std::size_t i = 0; i < file.quantities.size(); ++i) {
            if (file.quantities[i] != nullptr)
                AddCurve(file, *file.quantities[i], file.content.columns[i]);
        }
    }

    Plot Finish()
    {
        ShareTimes();
        for (PanelInProgress& entry : m_panels) {
            entry.panel.times = DivisibleTimes(entry.panel.times, entry.panel.timeKind);
            entry.panel.values = Divisible(*entry.values);
            m_plot.panels.push_back(std::move(entry.panel));
        }
        return std::move(m_plot);
    }

private:
    struct PanelInProgress {
        Panel panel;
        const MeasuredQuantity* quantity = nullptr;
        std::optional<Range> times;
        std::optional<Range> values;
    };

    void AddCurve(const InputFile& file, const MeasuredQuantity& quantity, MeasuredColumn& column)
    {
        const std::vector<double> values = std::move(column.values);
        std::vector<Reading> all = ReadingsInOrder(file.content.times, values);
        const auto gaps = static_cast<std::size_t>(std::ranges::count_if(all, IsGap));
        if (gaps == all.size()) {
            m_report(Text("%1: the column \"%2\" has no readings, it is left out",
                          {file.shownPath, Printable(column.header)}));
            return;
        }
        Curve curve{m_fileNames[file.fileColumn], {}, {}, all.size() - gaps, quantity.key, file.fileColumn};
        RenewStyle(curve);
        const Range times{all.front().time, all.back().time};
        curve.readings = std::move(all);
        m_readingCount += curve.readings.size();
        if (m_readingCount > MaxReadings)
            throw std::runtime_error{Text("more than 32 million readings in all")};
        AddToPanel(file, quantity, std::move(curve), times);
    }

    void AddToPanel(const InputFile& file, const MeasuredQuantity& quantity, Curve curve, Range times)
    {
        PanelInProgress& entry = PanelOf(file, quantity);
        Extend(entry.times, times.low);
        Extend(entry.times, times.high);
        for (const Reading& reading : curve.readings) {
            if (!IsGap(reading))
                Extend(entry.values, reading.value);
        }
        entry.panel.curves.push_back(std::move(curve));
    }

    PanelInProgress& PanelOf(const InputFile& file, const MeasuredQuantity& quantity)
    {
        const TimeKind kind = file.content.timeKind;
        const auto found = std::ranges::find_if(m_panels, [&](const PanelInProgress& entry) {
            return entry.quantity == &quantity && entry.panel.timeKind == kind;
        });
        if (found != m_panels.end())
            return *found;
        PanelInProgress& entry = m_panels.emplace_back();
        entry.quantity = &quantity;
        std::tie(entry.panel.title, entry.panel.unit) = TitleAndUnit(quantity);
        entry.panel.timeKind = kind;
        entry.panel.timeTitle = kind == TimeKind::Row ? Text("row") : Printable(file.content.timeHeader);
        return entry;
    }

    // Panels whose times overlap, in the order of time, get one range.
    void ShareTimes()
    {
        std::vector<PanelInProgress*> ordered;
        for (PanelInProgress& entry : m_panels)
            ordered.push_back(&entry);
        std::ranges::sort(ordered, {}, [](const PanelInProgress* entry) {
            return std::pair{entry->panel.timeKind, entry->times->low};
        });
        for (auto first = ordered.begin(); first != ordered.end();) {
            Range shared = *(*first)->times;
            const TimeKind kind = (*first)->panel.timeKind;
            auto next = first;
            for (; next != ordered.end() && (*next)->panel.timeKind == kind &&
                   (*next)->times->low <= shared.high;
                 ++next)
                shared.high = std::max(shared.high, (*next)->times->high);
            for (; first != next; ++first)
                (*first)->panel.times = shared;
        }
    }

    Plot m_plot;
    std::vector<PanelInProgress> m_panels;
    const std::vector<std::string> m_fileNames;
    const Report& m_report;
    std::size_t m_readingCount = 0;
};

} // namespace

Range Divisible(Range range)
{
    range = {std::clamp(range.low, -MaxValue, MaxValue), std::clamp(range.high, -MaxValue, MaxValue)};
    const double size = std::max(std::abs(range.low), std::abs(range.high));
    if (size < MinSize)
        return {-1, 1};
    const double minWidth = std::max(size * Resolution, MinSize);
    if (range.high - range.low >= minWidth)
        return range;
    const double margin = std::max(size / 10, MinSize);
    return {range.low - margin, range.high + margin};
}

Plot ReadPlot(std::span<const char* const> paths, const Report& report, const FileProgress& progress)
{
    const QuantityNames names;
    PlotMaker maker{paths, report};
    const auto add = [&maker](InputFile& file) { maker.AddFile(file); };
    const int status = ForEachFile(paths, names, report, add, progress);
    Plot plot = maker.Finish();
    plot.status = status;
    return plot;
}

std::span<const Reading> ReadingsAround(std::span<const Reading> readings, Range times)
{
    auto first = std::ranges::lower_bound(readings, times.low, {}, &Reading::time);
    auto last = std::ranges::upper_bound(first, readings.end(), times.high, {}, &Reading::time);
    if (first != readings.begin())
        --first;
    if (last != readings.end())
        ++last;
    return {first, last};
}

void RenewStyles(Plot& plot)
{
    for (Panel& panel : plot.panels)
        std::ranges::for_each(panel.curves, RenewStyle);
}

} // namespace atlashost
