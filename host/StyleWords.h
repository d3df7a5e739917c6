// StyleWords.h: the style of a curve, as the style atlas gives it, and how it is told on a terminal.
#pragma once

#include "QuantityNames.h"

#include <cstdint>
#include <optional>
#include <string>

namespace atlashost
{

struct CurveStyle {
    std::uint32_t symbolColor = 0; // red in the lowest byte, then green, then blue
    std::int16_t symbolShape = 0;
    std::int16_t symbolSize = 0;
    std::int16_t symbolFill = 0;
    std::uint32_t lineColor = 0;
    std::int16_t lineStyle = 0;
    std::int16_t lineWidth = 0;
    std::uint8_t useSymbolColor = 0;
    bool operator==(const CurveStyle&) const = default;
};

enum class ColorDepth { None, Palette256, TrueColor };

// The style of a quantity in a file column; empty where the style atlas has none.
std::optional<CurveStyle> StyleOf(std::int16_t fileColumn, const MeasuredQuantity& quantity);

// "cross, empty, size 10, #A52A00; solid line, width 1, #A52A00"
std::string InWords(const CurveStyle& style);

// What colours standard output shows: none where it is no terminal, where the terminal is a dumb one, or
// where the user has set NO_COLOR.
ColorDepth ColorsOfOutput();

// The colours of symbol and line side by side, four columns wide with a blank after them; nothing without
// colours.
std::string Swatch(const CurveStyle& style, ColorDepth depth);

// The swatch and the words; a text of its own where there is no style.
std::string StyleCell(const std::optional<CurveStyle>& style, ColorDepth depth);

} // namespace atlashost
