// Text.h: texts on their way between the files, the 16-bit interfaces and the screen. The program works in
// UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace atlashost
{

// Conversions that never fail: what is not valid becomes U+FFFD, the replacement character.
std::u16string ToUtf16(std::string_view utf8);
std::string ToUtf8(std::u16string_view utf16);

// The text as it may go to a terminal: valid UTF-8, with U+FFFD in the place of each control character. A
// text of more than the given number of characters is cut there, and "..." tells so.
std::string Printable(std::string_view utf8, std::size_t longest = 200);

// The number of columns that a printable text takes on a terminal.
std::size_t DisplayWidth(std::string_view utf8);

// The text with the letters A to Z made small, for comparing words in any case.
std::string Folded(std::string_view text);

std::string_view WithoutBlanks(std::string_view text);

// "1 row", "2 rows"
std::string Counted(std::size_t count, const char* noun);

// "0x1F", as a set of bits is best shown.
std::string Hexadecimal(std::uint32_t bits);

} // namespace atlashost
