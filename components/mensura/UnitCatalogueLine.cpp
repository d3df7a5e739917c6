#include "UnitCatalogueLine.h"

#include <Unicode.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace mensura
{

namespace
{

constexpr char separator = ';';
constexpr char commentMark = '#';
constexpr std::string_view blanks = " \t\r";
constexpr std::string_view wildcard = "*";
constexpr std::string_view noDeviceMark = "-1";

enum Field : std::size_t { Device, Quantity, SubQuantity, Index, Flags, Symbol, Name, FieldCount };

using Fields = std::array<std::string_view, FieldCount>;

template <class Number> constexpr Number maxOf = std::numeric_limits<Number>::max();

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Text from the file for a diagnostic, without control sequences that a terminal would obey.
std::string Quoted(std::string_view text)
{
    constexpr std::size_t maxLength = 40;
    std::string quoted = "\"";
    for (const char c : text.substr(0, maxLength))
        quoted += c >= ' ' && c <= '~' ? c : '?';
    return quoted + (text.size() > maxLength ? "...\"" : "\"");
}

bool Split(std::string_view text, Fields& fields, std::string& reason)
{
    std::size_t count = 0;
    for (std::size_t start = 0; start <= text.size(); ++count) {
        const std::size_t end = std::min(text.find(separator, start), text.size());
        if (count < FieldCount)
            fields[count] = Trimmed(text.substr(start, end - start));
        start = end + 1;
    }
    if (count == FieldCount)
        return true;
    reason = "expected " + std::to_string(FieldCount) + " fields, found " + std::to_string(count);
    return false;
}

template <class Number>
bool ParseNumber(std::string_view what, std::string_view text, Number max, Number& number,
                 std::string& reason)
{
    const bool isHex = text.starts_with("0x") || text.starts_with("0X");
    const std::string_view digits = isHex ? text.substr(2) : text;
    std::uint64_t value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, isHex ? 16 : 10);
    if (digits.empty() || error != std::errc{} || stop != end || value > max) {
        reason = std::string(what) + " " + Quoted(text) + " is not a number from 0 to " + std::to_string(max);
        return false;
    }
    number = static_cast<Number>(value);
    return true;
}

bool ParseDevice(std::string_view text, std::optional<std::uint16_t>& device, std::string& reason)
{
    device = noDevice;
    return text == noDeviceMark || ParseNumber("device", text, maxOf<std::uint16_t>, *device, reason);
}

bool ParseWholeQuantity(const Fields& fields, UnitCatalogueLine& line, std::string& reason)
{
    for (const Field field : {Index, Flags}) {
        if (fields[field] != wildcard && fields[field] != "0") {
            reason = "a quantity as a whole has * or 0 for index and flags, not " + Quoted(fields[field]);
            return false;
        }
    }
    return fields[Device] == wildcard || ParseDevice(fields[Device], line.Device, reason);
}

bool ParseEntry(const Fields& fields, UnitCatalogueLine& line, std::string& reason)
{
    line.SubQuantity = 0;
    return ParseDevice(fields[Device], line.Device, reason) &&
           ParseNumber("sub-quantity", fields[SubQuantity], maxSubQuantity, *line.SubQuantity, reason) &&
           ParseNumber("index", fields[Index], maxIndex, line.Index, reason) &&
           ParseNumber("flags", fields[Flags], maxOf<std::uint32_t>, line.Flags, reason);
}

constexpr bool IsSurrogate(char32_t c)
{
    return c >= 0xD800 && c < 0xE000;
}

constexpr bool IsControl(char32_t c)
{
    return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

bool ParseText(std::string_view what, std::string_view utf8, std::u16string& text, std::string& reason)
{
    for (std::string_view rest = utf8; !rest.empty();) {
        const std::optional<char32_t> c = TakeCharacter(rest);
        if (!c || IsSurrogate(*c)) {
            reason = std::string(what) + " is not valid UTF-8";
            return false;
        }
        if (IsControl(*c)) {
            reason = std::string(what) + " holds a control character";
            return false;
        }
    }
    text = ToUtf16(utf8);
    return true;
}

} // namespace

bool IsBlankOrComment(std::string_view text)
{
    const std::string_view content = Trimmed(text);
    return content.empty() || content.front() == commentMark;
}

std::optional<UnitCatalogueLine> ParseLine(std::string_view text, std::string& reason)
{
    Fields fields;
    UnitCatalogueLine line;
    if (!Split(text, fields, reason))
        return std::nullopt;
    const bool isWhole = fields[SubQuantity] == wildcard;
    if (!ParseNumber("quantity", fields[Quantity], maxOf<std::uint16_t>, line.Quantity, reason) ||
        !(isWhole ? ParseWholeQuantity(fields, line, reason) : ParseEntry(fields, line, reason)) ||
        !ParseText("symbol", fields[Symbol], line.Symbol, reason) ||
        !ParseText("name", fields[Name], line.Name, reason))
        return std::nullopt;
    if (line.Symbol.empty()) {
        reason = "the symbol is empty";
        return std::nullopt;
    }
    return line;
}

} // namespace mensura
