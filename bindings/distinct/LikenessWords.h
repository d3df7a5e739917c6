// Why curves can't be told apart, in words.
#pragma once

#include "Likeness.h"

#include <bindings/terminal/StyleWords.h>

#include <string>
#include <vector>

namespace styleatlas::distinct
{

// "3.2", with the decimal mark of the locale
std::string OneDecimal(double value);

// Each sight and the difference on it: "normal sight 3.2, greyscale 1.1".
std::string InWords(const std::vector<Closeness>& close, terminal::Translator text);

} // namespace styleatlas::distinct
