#include "TextEncoding.h"

#include "Texts.h"

#include <bindings/terminal/Text.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string_view>

namespace atlashost
{
namespace
{

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view LittleEndianMark = "\xFF\xFE";
constexpr std::string_view BigEndianMark = "\xFE\xFF";

// Of the bytes from 0x80 in Windows-1252; the others there are as in Latin-1.
constexpr std::array<char16_t, 32> FirstOfWindows1252 = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

// Of the characters at the front. By blocks, for speed.
std::size_t AsciiLength(std::string_view text)
{
    constexpr std::uint64_t HighBits = 0x8080808080808080;
    std::array<std::uint64_t, 8> block;
    std::size_t length = 0;
    for (std::uint64_t bits = 0; length + sizeof block <= text.size(); length += sizeof block) {
        std::memcpy(block.data(), text.data() + length, sizeof block);
        for (const std::uint64_t word : block)
            bits |= word;
        if ((bits & HighBits) != 0)
            break;
    }
    while (length < text.size() && static_cast<signed char>(text[length]) >= 0)
        ++length;
    return length;
}

// The length of the character at the front of a text, 0 if it is not valid UTF-8.
std::size_t CharacterLength(std::string_view text)
{
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::size_t length = byte(0) < 0xC2   ? 0
                               : byte(0) < 0xE0 ? 2
                               : byte(0) < 0xF0 ? 3
                               : byte(0) < 0xF5 ? 4
                                                : 0;
    if (length == 0 || length > text.size())
        return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return 0;
    }
    // Longer than needed, a surrogate, or past the last character.
    const bool isWrong = (byte(0) == 0xE0 && byte(1) < 0xA0) || (byte(0) == 0xED && byte(1) > 0x9F) ||
                         (byte(0) == 0xF0 && byte(1) < 0x90) || (byte(0) == 0xF4 && byte(1) > 0x8F);
    return isWrong ? 0 : length;
}

bool IsUtf8(std::string_view text)
{
    while (true) {
        text.remove_prefix(AsciiLength(text));
        if (text.empty())
            return true;
        const std::size_t length = CharacterLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
}

std::string FromUtf16(std::string_view bytes, std::size_t lowByte)
{
    std::u16string text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i + lowByte]) |
                                        static_cast<unsigned char>(bytes[2 * i + 1 - lowByte]) << 8);
    return styleatlas::terminal::ToUtf8(text);
}

std::string FromWindows1252(std::string_view bytes)
{
    std::u16string text(bytes.size(), u'\0');
    std::ranges::transform(bytes, text.begin(), [](char c) -> char16_t {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 0x80 && byte < 0xA0 ? FirstOfWindows1252[byte - 0x80] : byte;
    });
    return styleatlas::terminal::ToUtf8(text);
}

} // namespace

std::string TextOf(std::string content)
{
    if (content.starts_with(Utf8Mark))
        content.erase(0, Utf8Mark.size());
    else if (content.starts_with(LittleEndianMark))
        content = FromUtf16(std::string_view{content}.substr(2), 0);
    else if (content.starts_with(BigEndianMark))
        content = FromUtf16(std::string_view{content}.substr(2), 1);
    if (content.find('\0') != std::string::npos)
        throw std::runtime_error{Text("not a text file")};
    if (content.find('\n') == std::string::npos)
        std::ranges::replace(content, '\r', '\n');
    if (!IsUtf8(content))
        content = FromWindows1252(content);
    return content;
}

} // namespace atlashost
