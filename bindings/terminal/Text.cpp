#include "Text.h"

#include <algorithm>
#include <cstdio>

namespace styleatlas::terminal
{
namespace
{

constexpr char32_t Replacement = 0xFFFD;
constexpr char32_t FirstOfPair = 0x10000;
constexpr char32_t LastCodePoint = 0x10FFFF;

constexpr bool IsSurrogate(char32_t value)
{
    return value >= 0xD800 && value <= 0xDFFF;
}
constexpr bool IsControl(char32_t value)
{
    return value < 0x20 || (value >= 0x7F && value < 0xA0);
}

struct Range {
    char32_t first;
    char32_t last;
};

// Combining and invisible characters.
constexpr Range NoColumn[] = {{0x0300, 0x036F}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x200B, 0x200F},
                              {0x202A, 0x202E}, {0x2060, 0x2064}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F},
                              {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF}};
constexpr Range TwoColumns[] = {{0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0xA4CF},  {0xAC00, 0xD7A3},
                                {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},  {0xFFE0, 0xFFE6},
                                {0x1F300, 0x1F64F}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};

template <std::size_t Size> bool IsIn(const Range (&ranges)[Size], char32_t value)
{
    return std::ranges::any_of(ranges, [value](Range r) { return value >= r.first && value <= r.last; });
}

// Removes one code point from the front. An invalid byte is removed alone and gives the replacement
// character.
char32_t TakeUtf8(std::string_view& text)
{
    constexpr char32_t MinOfLength[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = first < 0x80 ? 1 : first < 0xC0 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    char32_t value = length == 1 ? first : first & (0x7Fu >> length);
    bool isValid = length > 0 && first < 0xF8 && length <= text.size();
    for (std::size_t i = 1; isValid && i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        isValid = (byte & 0xC0) == 0x80;
        value = (value << 6) | (byte & 0x3Fu);
    }
    isValid = isValid && value >= MinOfLength[length] && value <= LastCodePoint && !IsSurrogate(value);
    text.remove_prefix(isValid ? length : 1);
    return isValid ? value : Replacement;
}

void AppendUtf8(std::string& text, char32_t value)
{
    const auto following = [&text, value](int shift) {
        text += static_cast<char>(0x80 | ((value >> shift) & 0x3F));
    };
    if (value < 0x80) {
        text += static_cast<char>(value);
        return;
    }
    if (value < 0x800) {
        text += static_cast<char>(0xC0 | (value >> 6));
    } else {
        if (value < FirstOfPair) {
            text += static_cast<char>(0xE0 | (value >> 12));
        } else {
            text += static_cast<char>(0xF0 | (value >> 18));
            following(12);
        }
        following(6);
    }
    following(0);
}

} // namespace

std::u16string ToUtf16(std::string_view utf8)
{
    std::u16string text;
    while (!utf8.empty()) {
        const char32_t value = TakeUtf8(utf8);
        if (value < FirstOfPair) {
            text += static_cast<char16_t>(value);
            continue;
        }
        text += static_cast<char16_t>(0xD800 + ((value - FirstOfPair) >> 10));
        text += static_cast<char16_t>(0xDC00 + ((value - FirstOfPair) & 0x3FF));
    }
    return text;
}

std::string ToUtf8(std::u16string_view utf16)
{
    std::string text;
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        const char16_t unit = utf16[i];
        const bool isPair = unit >= 0xD800 && unit <= 0xDBFF && i + 1 < utf16.size() &&
                            utf16[i + 1] >= 0xDC00 && utf16[i + 1] <= 0xDFFF;
        if (isPair)
            AppendUtf8(text, FirstOfPair + ((unit - 0xD800u) << 10) + (utf16[++i] - 0xDC00u));
        else
            AppendUtf8(text, IsSurrogate(unit) ? Replacement : unit);
    }
    return text;
}

std::string Printable(std::string_view utf8, std::size_t maxLength)
{
    std::string text;
    for (std::size_t count = 0; !utf8.empty(); ++count) {
        if (count == maxLength)
            return text + "...";
        const char32_t value = TakeUtf8(utf8);
        AppendUtf8(text, IsControl(value) ? Replacement : value);
    }
    return text;
}

std::size_t DisplayWidth(std::string_view utf8)
{
    std::size_t width = 0;
    while (!utf8.empty()) {
        const char32_t value = TakeUtf8(utf8);
        if (!IsIn(NoColumn, value))
            width += IsIn(TwoColumns, value) ? 2 : 1;
    }
    return width;
}

std::string WithArguments(std::string_view text, std::initializer_list<std::string> arguments)
{
    std::string whole;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t number = text[i] == '%' && i + 1 < text.size() ? text[i + 1] - std::size_t{'1'} : 9;
        if (number < std::min<std::size_t>(arguments.size(), 9)) {
            whole += arguments.begin()[number];
            ++i;
        } else {
            whole += text[i];
        }
    }
    return whole;
}

std::string Counted(std::size_t count, const char* noun)
{
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string Hexadecimal(std::uint32_t bits)
{
    char text[sizeof "0xFFFFFFFF"];
    std::snprintf(text, sizeof text, "0x%X", static_cast<unsigned>(bits));
    return text;
}

} // namespace styleatlas::terminal
