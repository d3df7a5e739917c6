#include "Axis.h"

#include "CalendarSteps.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace atlashost
{
namespace
{

constexpr double MaxPlain = 1e7;    // numbers from here on are written with an exponent
constexpr int MaxPlainDecimals = 5; // so are steps with more decimals
constexpr int MaxDigits = 16;       // after the decimal mark of a number with an exponent
constexpr int GapCharacters = 2;    // between two labels
constexpr int MinLabelLength = 4;   // characters

// One, two or five times a power of ten.
struct DecimalStep {
    int factor = 1;
    int exponent = 0;

    double Value() const { return factor * std::pow(10.0, exponent); }
};

DecimalStep StepAtLeast(double size)
{
    const int exponent = static_cast<int>(std::floor(std::log10(size)));
    for (const int factor : {1, 2, 5}) {
        if (const DecimalStep step{factor, exponent}; step.Value() >= size * (1 - 1e-9))
            return step;
    }
    return {1, exponent + 1};
}

// All numbers of an axis have as many decimals as its step.
std::string NumberText(double value, DecimalStep step, double largest)
{
    std::array<char, 64> text;
    const auto write = [&](std::chars_format format, int digits) {
        return std::to_chars(text.data(), text.data() + text.size(), value, format, digits).ptr;
    };
    const bool isPlain = largest < MaxPlain && -step.exponent <= MaxPlainDecimals;
    const int exponent = static_cast<int>(std::floor(std::log10(largest)));
    const char* const end =
        isPlain ? write(std::chars_format::fixed, std::max(0, -step.exponent))
                : write(std::chars_format::scientific, std::clamp(exponent - step.exponent, 0, MaxDigits));
    return std::string{static_cast<const char*>(text.data()), end};
}

std::vector<Tick> NumberTicks(Range range, DecimalStep step)
{
    const double value = step.Value();
    const double largest = std::max(std::abs(range.low), std::abs(range.high));
    constexpr double Slack = 1e-6; // of a step: tolerates rounding at the ends
    const auto first = static_cast<std::int64_t>(std::ceil(range.low / value - Slack));
    const auto last = static_cast<std::int64_t>(std::floor(range.high / value + Slack));
    std::vector<Tick> ticks;
    for (std::int64_t i = first; i <= last; ++i) {
        const double at = static_cast<double>(i) * value;
        ticks.push_back({std::clamp(at, range.low, range.high), NumberText(at, step, largest)});
    }
    return ticks;
}

std::vector<Tick> LongEnoughNumberTicks(Range range, int length, int characterWidth)
{
    int characters = MinLabelLength;
    while (true) {
        const int maxSteps = std::max(1, length / ((characters + GapCharacters) * characterWidth));
        std::vector<Tick> ticks = NumberTicks(range, StepAtLeast((range.high - range.low) / maxSteps));
        std::size_t maxLength = 0;
        for (const Tick& tick : ticks)
            maxLength = std::max(maxLength, tick.label.size());
        if (static_cast<int>(maxLength) <= characters)
            return ticks;
        characters = static_cast<int>(maxLength);
    }
}

} // namespace

Axis ValueAxis(Range values, int maxSteps)
{
    const DecimalStep step = StepAtLeast((values.high - values.low) / std::max(1, maxSteps));
    const double value = step.Value();
    const Range range{std::floor(values.low / value) * value, std::ceil(values.high / value) * value};
    return {range, NumberTicks(range, step)};
}

Axis ExactValueAxis(Range values, int maxSteps)
{
    return {values, NumberTicks(values, StepAtLeast((values.high - values.low) / std::max(1, maxSteps)))};
}

Axis TimeAxis(Range times, TimeKind kind, int length, int characterWidth)
{
    if (kind != TimeKind::Date)
        return {times, LongEnoughNumberTicks(times, length, characterWidth)};
    const auto fits = [&](double seconds, std::size_t characters) {
        const double pixels = seconds / (times.high - times.low) * length;
        return pixels >= static_cast<double>((static_cast<int>(characters) + GapCharacters) * characterWidth);
    };
    Axis axis{times, {}};
    for (const CalendarTick& tick : CalendarTicks(times.low, times.high, fits))
        axis.ticks.push_back({tick.time, tick.label});
    return axis;
}

} // namespace atlashost
