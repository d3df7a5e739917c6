#include "CatalogueLine.h"

#include "Utf.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace mensura
{
namespace
{

constexpr char Separator = ';';
constexpr char CommentMark = '#';
constexpr std::string_view Blanks = " \t\r";
constexpr std::string_view Wildcard = "*";
constexpr std::string_view NoDeviceMark = "-1";

enum Field : std::size_t { Device, Quantity, SubQuantity, Index, Flags, Symbol, Name, FieldCount };

using Fields = std::array<std::string_view, FieldCount>;

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

// Any text from the file, fit for a message: a terminal must not obey what stands in a catalogue.
std::string Quoted(std::string_view text)
{
    constexpr std::size_t Longest = 40;
    std::string quoted = "\"";
    for (const char c : text.substr(0, Longest))
        quoted += c >= ' ' && c <= '~' ? c : '?';
    return quoted + (text.size() > Longest ? "...\"" : "\"");
}

bool Split(std::string_view text, Fields& fields, std::string& reason)
{
    std::size_t count = 0;
    for (std::size_t start = 0; start <= text.size(); ++count) {
        const std::size_t end = std::min(text.find(Separator, start), text.size());
        if (count < FieldCount)
            fields[count] = Trimmed(text.substr(start, end - start));
        start = end + 1;
    }
    if (count == FieldCount)
        return true;
    reason = "expected " + std::to_string(FieldCount) + " fields, found " + std::to_string(count);
    return false;
}

template <typename Number>
bool ParseNumber(std::string_view what, std::string_view text, Number largest, Number& number,
                 std::string& reason)
{
    const bool isHex = text.starts_with("0x") || text.starts_with("0X");
    const std::string_view digits = isHex ? text.substr(2) : text;
    std::uint64_t value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, isHex ? 16 : 10);
    if (digits.empty() || error != std::errc{} || stop != end || value > largest) {
        reason =
            std::string{what} + " " + Quoted(text) + " is not a number from 0 to " + std::to_string(largest);
        return false;
    }
    number = static_cast<Number>(value);
    return true;
}

bool ParseDevice(std::string_view text, std::optional<std::uint16_t>& device, std::string& reason)
{
    device = NoDevice;
    return text == NoDeviceMark ||
           ParseNumber("device", text, std::numeric_limits<std::uint16_t>::max(), *device, reason);
}

bool ParseWholeQuantity(const Fields& fields, CatalogueLine& line, std::string& reason)
{
    for (const Field field : {Index, Flags}) {
        if (fields[field] != Wildcard && fields[field] != "0") {
            reason = "a quantity as a whole has * or 0 for index and flags, not " + Quoted(fields[field]);
            return false;
        }
    }
    return fields[Device] == Wildcard || ParseDevice(fields[Device], line.device, reason);
}

bool ParseEntry(const Fields& fields, CatalogueLine& line, std::string& reason)
{
    constexpr std::uint32_t MaxFlags = std::numeric_limits<std::uint32_t>::max();
    line.subQuantity = 0;
    return ParseDevice(fields[Device], line.device, reason) &&
           ParseNumber("sub-quantity", fields[SubQuantity], MaxSubQuantity, *line.subQuantity, reason) &&
           ParseNumber("index", fields[Index], MaxIndex, line.index, reason) &&
           ParseNumber("flags", fields[Flags], MaxFlags, line.flags, reason);
}

bool IsControl(char32_t value)
{
    return value < 0x20 || (value >= 0x7F && value < 0xA0);
}

bool ParseText(std::string_view what, std::string_view utf8, std::u16string& text, std::string& reason)
{
    while (!utf8.empty()) {
        const std::optional<char32_t> value = TakeCodePoint(utf8);
        if (!value) {
            reason = std::string{what} + " is not valid UTF-8";
            return false;
        }
        if (IsControl(*value)) {
            reason = std::string{what} + " holds a control character";
            return false;
        }
        AppendUtf16(text, *value);
    }
    return true;
}

} // namespace

bool IsSilent(std::string_view text)
{
    const std::string_view content = Trimmed(text);
    return content.empty() || content.front() == CommentMark;
}

std::optional<CatalogueLine> ParseLine(std::string_view text, std::string& reason)
{
    Fields fields;
    CatalogueLine line;
    if (!Split(text, fields, reason))
        return std::nullopt;
    const bool isWhole = fields[SubQuantity] == Wildcard;
    constexpr std::uint16_t MaxQuantity = std::numeric_limits<std::uint16_t>::max();
    if (!ParseNumber("quantity", fields[Quantity], MaxQuantity, line.quantity, reason) ||
        !(isWhole ? ParseWholeQuantity(fields, line, reason) : ParseEntry(fields, line, reason)) ||
        !ParseText("symbol", fields[Symbol], line.symbol, reason) ||
        !ParseText("name", fields[Name], line.name, reason))
        return std::nullopt;
    if (line.symbol.empty()) {
        reason = "the symbol is empty";
        return std::nullopt;
    }
    return line;
}

} // namespace mensura
