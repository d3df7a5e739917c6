// Conversion between the layer's 16-bit strings and the UTF-8 of the system. An unpaired surrogate becomes
// three bytes of its own, so that every 16-bit text survives the round trip.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <windef.h>

PLATFORM_API std::string ToUtf8(std::u16string_view text);

// Bytes outside any character become U+FFFD each.
PLATFORM_API std::u16string ToUtf16(std::string_view text);

// Removes the first character, a surrogate included, from a UTF-8 text that isn't empty. Empty, and the text
// unchanged, when the bytes at its front are no character: a stray or missing byte, an overlong form, or a
// value above U+10FFFF.
std::optional<char32_t> TakeCharacter(std::string_view& text);
