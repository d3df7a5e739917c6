#include "StyleWords.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string_view>

#include <unistd.h>

namespace styleatlas::terminal
{
namespace
{

template <class Number> struct Word {
    Number value;
    const char* text;
};

constexpr Word<SymbolShape> Shapes[] = {
    {SymbolShape::None, "no symbol"},    {SymbolShape::Cross, "cross"},
    {SymbolShape::Triangle, "triangle"}, {SymbolShape::Triangle2, "triangle 2"},
    {SymbolShape::Square, "square"},     {SymbolShape::Plus, "plus"},
    {SymbolShape::Asterisk, "asterisk"}, {SymbolShape::Diamond, "diamond"},
    {SymbolShape::Circle, "circle"},     {SymbolShape::Point, "point"},
};
constexpr Word<SymbolFill> Fills[] = {
    {SymbolFill::Filled, "filled"},
    {SymbolFill::Empty, "empty"},
    {SymbolFill::EmptyWithDot, "empty with dot"},
};
constexpr Word<LineStyle> Lines[] = {
    {LineStyle::Solid, "solid line"},
    {LineStyle::Dashed, "dashed line"},
    {LineStyle::Dotted, "dotted line"},
    {LineStyle::DashDotted, "dash-dotted line"},
    {LineStyle::DashDotDot, "dash-dot-dot line"},
    {LineStyle::None, "no line"},
};

// A layout file can hold any number.
template <class Number, std::size_t Size>
std::string WordFor(const Word<Number> (&words)[Size], Number value, const char* unknown, Translator text)
{
    const auto found = std::ranges::find(words, value, &Word<Number>::value);
    if (found != std::end(words))
        return text(found->text, {});
    return text(unknown, {std::to_string(static_cast<int>(value))});
}

struct Rgb {
    int red;
    int green;
    int blue;
};

constexpr Rgb Parts(Color color)
{
    return {color.Red(), color.Green(), color.Blue()};
}

std::string Hex(Color color)
{
    const auto [red, green, blue] = Parts(color);
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", red, green, blue);
    return text;
}

// Entries 16 to 231 of a terminal's palette are a cube of six steps a side, 232 to 255 a ramp of greys.
constexpr int CubeSteps[] = {0, 95, 135, 175, 215, 255};
constexpr int CubeBase = 16;
constexpr int GreyBase = 232;
constexpr int GreyCount = 24;
constexpr int GreyOf(int step)
{
    return 8 + 10 * step;
}

int NearestStep(int value)
{
    const auto distance = [value](int step) { return std::abs(step - value); };
    return static_cast<int>(std::ranges::min_element(CubeSteps, {}, distance) - CubeSteps);
}

int DistanceOf(Rgb a, Rgb b)
{
    const int red = a.red - b.red;
    const int green = a.green - b.green;
    const int blue = a.blue - b.blue;
    return red * red + green * green + blue * blue;
}

int NearestPaletteEntry(Rgb color)
{
    const int red = NearestStep(color.red);
    const int green = NearestStep(color.green);
    const int blue = NearestStep(color.blue);
    const Rgb inCube{CubeSteps[red], CubeSteps[green], CubeSteps[blue]};
    const int mean = (color.red + color.green + color.blue) / 3;
    const int greyStep = std::clamp((mean - GreyOf(0) + 5) / 10, 0, GreyCount - 1);
    const Rgb grey{GreyOf(greyStep), GreyOf(greyStep), GreyOf(greyStep)};
    return DistanceOf(color, grey) < DistanceOf(color, inCube) ? GreyBase + greyStep
                                                               : CubeBase + 36 * red + 6 * green + blue;
}

std::string Background(Color color, ColorDepth depth)
{
    const Rgb parts = Parts(color);
    if (depth == ColorDepth::Palette256)
        return "\x1b[48;5;" + std::to_string(NearestPaletteEntry(parts)) + "m";
    return "\x1b[48;2;" + std::to_string(parts.red) + ";" + std::to_string(parts.green) + ";" +
           std::to_string(parts.blue) + "m";
}

std::string_view Environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string_view{} : value;
}

} // namespace

std::string InWords(const Style& style, Translator text)
{
    std::string words = WordFor(Shapes, style.symbolShape, "unknown symbol %1", text);
    if (style.symbolShape != SymbolShape::None)
        words += ", " + WordFor(Fills, style.symbolFill, "unknown fill %1", text) + ", " +
                 text("size %1", {std::to_string(style.symbolSize)}) + ", " + Hex(style.symbolColor);
    words += "; " + WordFor(Lines, style.lineStyle, "unknown line %1", text);
    if (style.lineStyle == LineStyle::None)
        return words;
    const std::string color = Hex(style.DrawnLineColor());
    words += ", " + text("width %1", {std::to_string(style.lineWidth)}) + ", " +
             (style.useSymbolColor ? text("%1 as the symbol", {color}) : color);
    return words;
}

ColorDepth ColorsOfOutput()
{
    if (isatty(STDOUT_FILENO) == 0 || !Environment("NO_COLOR").empty() || Environment("TERM") == "dumb")
        return ColorDepth::None;
    const std::string_view colors = Environment("COLORTERM");
    return colors == "truecolor" || colors == "24bit" ? ColorDepth::TrueColor : ColorDepth::Palette256;
}

std::string Swatch(const Style& style, ColorDepth depth)
{
    if (depth == ColorDepth::None)
        return {};
    return Background(style.symbolColor, depth) + "  " + Background(style.DrawnLineColor(), depth) +
           "  \x1b[0m ";
}

std::string StyleCell(const std::optional<Style>& style, ColorDepth depth, Translator text)
{
    return style ? Swatch(*style, depth) + InWords(*style, text) : text("no style", {});
}

} // namespace styleatlas::terminal
