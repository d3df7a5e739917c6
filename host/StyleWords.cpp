#include "StyleWords.h"

#include "styleatlas.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>

#include <unistd.h>

namespace atlashost
{
namespace
{

struct Word {
    int value;
    const char* text;
};

constexpr Word Shapes[] = {
    {STYLEATLAS_SHAPE_NONE, "no symbol"},    {STYLEATLAS_SHAPE_CROSS, "cross"},
    {STYLEATLAS_SHAPE_TRIANGLE, "triangle"}, {STYLEATLAS_SHAPE_TRIANGLE_2, "triangle 2"},
    {STYLEATLAS_SHAPE_SQUARE, "square"},     {STYLEATLAS_SHAPE_PLUS, "plus"},
    {STYLEATLAS_SHAPE_ASTERISK, "asterisk"}, {STYLEATLAS_SHAPE_DIAMOND, "diamond"},
    {STYLEATLAS_SHAPE_CIRCLE, "circle"},     {STYLEATLAS_SHAPE_POINT, "point"},
};
constexpr Word Fills[] = {
    {STYLEATLAS_FILL_FILLED, "filled"},
    {STYLEATLAS_FILL_EMPTY, "empty"},
    {STYLEATLAS_FILL_EMPTY_WITH_DOT, "empty with dot"},
};
constexpr Word Lines[] = {
    {STYLEATLAS_LINE_SOLID, "solid line"},
    {STYLEATLAS_LINE_DASHED, "dashed line"},
    {STYLEATLAS_LINE_DOTTED, "dotted line"},
    {STYLEATLAS_LINE_DASH_DOTTED, "dash-dotted line"},
    {STYLEATLAS_LINE_DASH_DOT_DOT, "dash-dot-dot line"},
    {STYLEATLAS_LINE_NONE, "no line"},
};

// A layout file can bring any number.
std::string WordFor(std::span<const Word> words, int value, const char* kind)
{
    const auto found = std::ranges::find(words, value, &Word::value);
    return found != words.end() ? found->text : std::string{"unknown "} + kind + " " + std::to_string(value);
}

struct Rgb {
    int red;
    int green;
    int blue;
};

constexpr Rgb Parts(std::uint32_t color)
{
    return {static_cast<int>(STYLEATLAS_RED(color)), static_cast<int>(STYLEATLAS_GREEN(color)),
            static_cast<int>(STYLEATLAS_BLUE(color))};
}

std::string Hex(std::uint32_t color)
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

std::string Background(std::uint32_t color, ColorDepth depth)
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

std::optional<CurveStyle> StyleOf(std::int16_t fileColumn, const MeasuredQuantity& quantity)
{
    CurveStyle style;
    if (GetStyleAtlas(fileColumn, quantity.quantity, quantity.subQuantity, quantity.index, quantity.device,
                      quantity.flags, &style.symbolColor, &style.symbolShape, &style.symbolSize,
                      &style.symbolFill, &style.lineColor, &style.lineStyle, &style.lineWidth,
                      &style.useSymbolColor) == STYLEATLAS_NOT_FOUND)
        return std::nullopt;
    return style;
}

std::string InWords(const CurveStyle& style)
{
    std::string words = WordFor(Shapes, style.symbolShape, "symbol");
    if (style.symbolShape != STYLEATLAS_SHAPE_NONE)
        words += ", " + WordFor(Fills, style.symbolFill, "fill") + ", size " +
                 std::to_string(style.symbolSize) + ", " + Hex(style.symbolColor);
    words += "; " + WordFor(Lines, style.lineStyle, "line");
    if (style.lineStyle != STYLEATLAS_LINE_NONE)
        words +=
            ", width " + std::to_string(style.lineWidth) + ", " +
            (style.useSymbolColor != 0 ? Hex(style.symbolColor) + " as the symbol" : Hex(style.lineColor));
    return words;
}

ColorDepth ColorsOfOutput()
{
    if (isatty(STDOUT_FILENO) == 0 || !Environment("NO_COLOR").empty() || Environment("TERM") == "dumb")
        return ColorDepth::None;
    const std::string_view colors = Environment("COLORTERM");
    return colors == "truecolor" || colors == "24bit" ? ColorDepth::TrueColor : ColorDepth::Palette256;
}

std::string Swatch(const CurveStyle& style, ColorDepth depth)
{
    if (depth == ColorDepth::None)
        return {};
    const std::uint32_t lineColor = style.useSymbolColor != 0 ? style.symbolColor : style.lineColor;
    return Background(style.symbolColor, depth) + "  " + Background(lineColor, depth) + "  \x1b[0m ";
}

std::string StyleCell(const std::optional<CurveStyle>& style, ColorDepth depth)
{
    return style ? Swatch(*style, depth) + InWords(*style) : "no style";
}

} // namespace atlashost
