// Texts between UTF-16 interfaces, files and a terminal. All char strings are UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace styleatlas::terminal
{

// Conversions that never fail: invalid input becomes U+FFFD, the replacement character.
std::u16string ToUtf16(std::string_view utf8);
std::string ToUtf8(std::u16string_view utf16);

constexpr std::size_t NoLimit = std::string_view::npos;

// The text as it may go to a terminal: valid UTF-8, each control character replaced by U+FFFD. A text of more
// than maxLength characters is cut there and ends with "...".
std::string Printable(std::string_view utf8, std::size_t maxLength = 200);

// The number of terminal columns that a printable text takes.
std::size_t DisplayWidth(std::string_view utf8);

// The text with the first argument for %1, the second for %2 and so on, up to %9.
std::string WithArguments(std::string_view text, std::initializer_list<std::string> arguments);

// "1 row", "2 rows"
std::string Counted(std::size_t count, const char* noun);

// "0x1F"
std::string Hexadecimal(std::uint32_t bits);

} // namespace styleatlas::terminal
