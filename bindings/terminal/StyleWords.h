// A curve style in words, and its colours on a terminal.
#pragma once

#include <styleatlas.hpp>

#include "Text.h"

#include <initializer_list>
#include <optional>
#include <string>

namespace styleatlas::terminal
{

enum class ColorDepth { None, Palette256, TrueColor };

// Gives an English text in the user's language, with arguments as WithArguments does. By default that does
// it, in English.
using Translator = std::string (*)(const char* english, std::initializer_list<std::string> arguments);
inline std::string InEnglish(const char* english, std::initializer_list<std::string> arguments)
{
    return WithArguments(english, arguments);
}

// "cross, empty, size 10, #A52A00; solid line, width 1, #A52A00"
std::string InWords(const Style& style, Translator text = InEnglish);

// The colours that standard output shows: none unless it is a terminal, on a dumb terminal, and where the
// user has set NO_COLOR.
ColorDepth ColorsOfOutput();

// The colours of symbol and line side by side: four columns and a blank. Empty without colours.
std::string Swatch(const Style& style, ColorDepth depth);

// Swatch and words, or "no style".
std::string StyleCell(const std::optional<Style>& style, ColorDepth depth, Translator text = InEnglish);

} // namespace styleatlas::terminal
