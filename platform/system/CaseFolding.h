// Names without regard to the case of their letters.
#pragma once

#include <string>
#include <string_view>

// The small letter of a capital of the Latin, Greek, Cyrillic and Armenian alphabets; any other character as
// it is. The same on every system and in every language.
char16_t FoldCharacter(char16_t c) noexcept;

// A text in UTF-8 with each of its characters folded.
std::string FoldCase(std::string_view utf8);
