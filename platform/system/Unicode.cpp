#include "Unicode.h"

namespace
{

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t maxCharacter = 0x10FFFF;

constexpr bool IsHighSurrogate(char32_t c)
{
    return c >= 0xD800 && c < 0xDC00;
}
constexpr bool IsLowSurrogate(char32_t c)
{
    return c >= 0xDC00 && c < 0xE000;
}

void AppendUtf8(std::string& out, char32_t c)
{
    const auto tail = [&out](char32_t bits) { out.push_back(static_cast<char>(0x80 | (bits & 0x3F))); };
    if (c < 0x80) {
        out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (c >> 6)));
        tail(c);
    } else if (c < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (c >> 12)));
        tail(c >> 6);
        tail(c);
    } else {
        out.push_back(static_cast<char>(0xF0 | (c >> 18)));
        tail(c >> 12);
        tail(c >> 6);
        tail(c);
    }
}

void AppendUtf16(std::u16string& out, char32_t c)
{
    if (c < 0x10000) {
        out.push_back(static_cast<char16_t>(c));
        return;
    }
    c -= 0x10000;
    out.push_back(static_cast<char16_t>(0xD800 + (c >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (c & 0x3FF)));
}

struct LeadByte {
    unsigned char Mask; // the other bits are the character's
    unsigned char Pattern;
    std::size_t Length; // of the whole character, in bytes
    char32_t Min;       // smaller characters of this length are overlong forms
};
constexpr LeadByte leadBytes[] = {{0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}};

} // namespace

std::string ToUtf8(std::u16string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (IsHighSurrogate(c) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]))
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00);
        AppendUtf8(out, c);
    }
    return out;
}

std::optional<char32_t> TakeCharacter(std::string_view& text)
{
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (const char32_t ascii = byte(0); ascii < 0x80) { // most characters of every catalogue
        text.remove_prefix(1);
        return ascii;
    }
    for (const LeadByte& lead : leadBytes) {
        if ((byte(0) & lead.Mask) != lead.Pattern)
            continue;
        if (text.size() < lead.Length)
            return std::nullopt;
        char32_t c = byte(0) & static_cast<unsigned char>(~lead.Mask);
        for (std::size_t i = 1; i < lead.Length; ++i) {
            if ((byte(i) & 0xC0) != 0x80)
                return std::nullopt;
            c = (c << 6) | (byte(i) & 0x3F);
        }
        if (c < lead.Min || c > maxCharacter)
            return std::nullopt;
        text.remove_prefix(lead.Length);
        return c;
    }
    return std::nullopt;
}

std::u16string ToUtf16(std::string_view text)
{
    std::u16string out;
    while (!text.empty()) {
        const std::optional<char32_t> c = TakeCharacter(text);
        AppendUtf16(out, c.value_or(replacement));
        if (!c)
            text.remove_prefix(1);
    }
    return out;
}
