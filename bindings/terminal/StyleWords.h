// A curve style in words, and its colours on a terminal.
#pragma once

#include <styleatlas.hpp>

#include <optional>
#include <string>

namespace styleatlas::terminal
{

enum class ColorDepth { None, Palette256, TrueColor };

// "cross, empty, size 10, #A52A00; solid line, width 1, #A52A00"
std::string InWords(const Style& style);

// The colours that standard output shows: none unless it is a terminal, on a dumb terminal, and where the
// user has set NO_COLOR.
ColorDepth ColorsOfOutput();

// The colours of symbol and line side by side: four columns and a blank. Empty without colours.
std::string Swatch(const Style& style, ColorDepth depth);

// Swatch and words, or "no style".
std::string StyleCell(const std::optional<Style>& style, ColorDepth depth);

} // namespace styleatlas::terminal
