#include "ReadingFinder.h"

#include "Calendar.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace atlashost
{
namespace
{

constexpr int Reach = 16;      // pixels
constexpr int MaxDigits = 10;  // of a number
constexpr int MaxDecimals = 3; // of the seconds of a reading

std::string NumberText(double number, int digits)
{
    std::array<char, 64> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general,
                                   std::clamp(digits, 1, MaxDigits))
                         .ptr;
    return {text.data(), end};
}

// As many digits as numbers of this distance need to differ.
std::string NumberText(double number, double resolution)
{
    const double rounded = std::round(number / resolution) * resolution;
    if (rounded == 0)
        return "0";
    const double digits = std::floor(std::log10(std::abs(rounded))) - std::floor(std::log10(resolution)) + 1;
    return NumberText(rounded, static_cast<int>(digits));
}

// The time of day is omitted at midnight, and decimals that are zero.
std::string DateAndTimeText(double time, int maxDecimals)
{
    const double unit = std::pow(10.0, maxDecimals);
    const double rounded = std::round(time * unit) / unit;
    const double shown = rounded + 0.1 / unit; // the text is cut off, not rounded
    const double second = std::fmod(rounded, 60);
    if (std::fmod(rounded, SecondsOfDay) == 0)
        return DateText(shown);
    const Seconds seconds = second == 0 ? Seconds::Hidden : Seconds::Shown;
    const int decimals = second == std::floor(second) ? 0 : maxDecimals;
    return DateText(shown) + " " + TimeOfDayText(shown, seconds, decimals);
}

std::string TimeText(const Panel& panel, const std::string& number)
{
    return panel.timeTitle.empty() ? number : panel.timeTitle + " " + number;
}

std::string WithUnit(const std::string& value, const Panel& panel)
{
    return panel.unit.empty() ? value : value + " " + panel.unit;
}

} // namespace

std::optional<std::size_t> PanelAt(const PlotLayout& layout, QPoint point)
{
    for (std::size_t i = 0; i < layout.panels.size(); ++i) {
        const PanelLayout& panel = layout.panels[i];
        QRect place = panel.all;
        place.setRight(panel.frame.right());
        if (place.contains(point))
            return i;
    }
    return std::nullopt;
}

std::optional<FoundReading> FindReading(const Panel& panel, const PanelLayout& layout, std::size_t index,
                                        QPoint point)
{
    const FrameMap map = layout.Map();
    const Range times{map.TimeAt(point.x() - Reach), map.TimeAt(point.x() + Reach)};
    std::optional<FoundReading> found;
    double nearest = Reach;
    for (std::size_t curve = 0; curve < panel.curves.size(); ++curve) {
        for (const Reading& reading : ReadingsAround(panel.curves[curve].readings, times)) {
            const QPointF at = map.PointOf(reading);
            const double distance = std::hypot(at.x() - point.x(), at.y() - point.y());
            if (distance < nearest && layout.frame.contains(map.PixelAt(at))) { // never a gap
                nearest = distance;
                found = {{index, curve}, reading, map.PixelAt(at)};
            }
        }
    }
    return found;
}

std::string TextOf(const Plot& plot, const FoundReading& found)
{
    const Panel& panel = plot.panels[found.place.panel];
    const std::string time = panel.timeKind == TimeKind::Date
                                 ? DateAndTimeText(found.reading.time, MaxDecimals)
                                 : TimeText(panel, NumberText(found.reading.time, MaxDigits));
    return panel.curves[found.place.curve].fileName + ": " + panel.title + ", " +
           WithUnit(NumberText(found.reading.value, MaxDigits), panel) + ", " + time;
}

std::string TextOf(const Panel& panel, const PanelLayout& layout, QPoint point)
{
    const FrameMap map = layout.Map();
    const double time = map.TimeAt(point.x());
    const double resolution = map.TimeOfPixel();
    std::string text = WithUnit(NumberText(map.ValueAt(point.y()), map.ValueOfPixel()), panel) + ", ";
    if (panel.timeKind != TimeKind::Date)
        return text + TimeText(panel, NumberText(time, resolution));
    if (resolution >= SecondsOfDay)
        return text + DateText(time);
    if (resolution >= 1) // whole minutes; seconds where a pixel is less
        return text + DateAndTimeText(resolution >= 60 ? std::floor(time / 60) * 60 : time, 0);
    const auto decimals = static_cast<int>(std::ceil(-std::log10(resolution)));
    return text + DateAndTimeText(time, std::clamp(decimals, 0, MaxDecimals));
}

} // namespace atlashost
