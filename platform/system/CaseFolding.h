// Case-insensitive names.
#pragma once

#include <string>
#include <string_view>

// The small letter of a Latin, Greek, Cyrillic or Armenian capital; any other character unchanged. The same
// on every system and in every locale.
char16_t FoldCharacter(char16_t c) noexcept;

// Folds each character.
std::string FoldCase(std::string_view utf8);
