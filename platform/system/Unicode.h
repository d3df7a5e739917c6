// Conversion between the layer's 16-bit strings and the UTF-8 of the system. A surrogate without its partner
// is carried through as three bytes of its own, so that every 16-bit text comes back as it was.
#pragma once

#include <string>
#include <string_view>
#include <windef.h>

PLATFORM_API std::string ToUtf8(std::u16string_view text);

// A byte that belongs to no character becomes U+FFFD.
PLATFORM_API std::u16string ToUtf16(std::string_view text);
