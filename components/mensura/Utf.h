// Utf.h: the one conversion that the unit library needs, from the catalogue's UTF-8 to the UTF-16 of its
// interface.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mensura
{

constexpr char32_t LastCodePoint = 0x10FFFF;
constexpr char32_t FirstSurrogate = 0xD800;
constexpr char32_t LastSurrogate = 0xDFFF;

// What a lead byte promises: how many bytes follow, which of its bits count, and the smallest value that may
// be written at this length.
struct Utf8Lead {
    std::size_t following;
    unsigned char bits;
    char32_t smallest;
};

constexpr std::optional<Utf8Lead> LeadOf(unsigned char byte)
{
    if (byte < 0x80)
        return Utf8Lead{0, 0x7F, 0};
    if (byte >= 0xC0 && byte < 0xE0)
        return Utf8Lead{1, 0x1F, 0x80};
    if (byte >= 0xE0 && byte < 0xF0)
        return Utf8Lead{2, 0x0F, 0x800};
    if (byte >= 0xF0 && byte < 0xF8)
        return Utf8Lead{3, 0x07, 0x10000};
    return std::nullopt;
}

// Takes one code point off the front of a text that is not empty. Nothing where the front is not valid UTF-8:
// overlong forms, surrogates and values past U+10FFFF are none.
constexpr std::optional<char32_t> TakeCodePoint(std::string_view& text)
{
    const auto first = static_cast<unsigned char>(text.front());
    const std::optional<Utf8Lead> lead = LeadOf(first);
    if (!lead || text.size() <= lead->following)
        return std::nullopt;
    char32_t value = first & lead->bits;
    for (const char c : text.substr(1, lead->following)) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0) != 0x80)
            return std::nullopt;
        value = (value << 6) | (byte & 0x3Fu);
    }
    if (value < lead->smallest || value > LastCodePoint ||
        (value >= FirstSurrogate && value <= LastSurrogate))
        return std::nullopt;
    text.remove_prefix(1 + lead->following);
    return value;
}

inline void AppendUtf16(std::u16string& text, char32_t value)
{
    constexpr char32_t FirstOfPair = 0x10000;
    if (value < FirstOfPair) {
        text += static_cast<char16_t>(value);
        return;
    }
    text += static_cast<char16_t>(0xD800 + ((value - FirstOfPair) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((value - FirstOfPair) & 0x3FF));
}

} // namespace mensura
