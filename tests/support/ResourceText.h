// Dialogs and menus as text, to be compared as a whole. Damaged ones give an empty text.
#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace test
{

// The window: help id, style, extended style, caption, rectangle, menu, class. Its font. A line for each
// control: id, class, style, title, rectangle, creation data. Styles are hexadecimal; a name that is a number
// is #number.
std::string DialogText(std::span<const std::byte> bytes);

// A line for each item, indented by its level: command (c), popup (p) or separator (s) with its id, flags,
// text.
std::string MenuText(std::span<const std::byte> bytes);

} // namespace test
