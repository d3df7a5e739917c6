// Dialogs and menus as text. Damaged ones give an empty text.
#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace test
{

// The window: style, caption, rectangle. Its font: size, italic, face. A line for each control: id, class,
// style, title, rectangle. Styles are hexadecimal.
std::string DialogText(std::span<const std::byte> bytes);

// A line for each item, indented by its level: command (c), popup (p) or separator (s) with its id and text.
std::string MenuText(std::span<const std::byte> bytes);

} // namespace test
