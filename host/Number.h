// Numbers in files.
#pragma once

#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace atlashost
{

// With a decimal point, by no locale, whose mark may differ from the file's. Empty for anything else, and for
// what is not finite.
inline std::optional<double> ParseNumber(std::string_view text)
{
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    double value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || stop != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

// The same with a decimal comma; a number without a fraction fits both.
std::optional<double> ParseCommaNumber(std::string_view text);

// Whether a mark could part thousands as well: "1,234".
bool HasThousandsForm(std::string_view text, char mark);

enum class DecimalMark { Unknown, Point, Comma };

// Reads the numbers of one file. While the mark is unknown, a point is one; the first comma that can't part
// thousands makes it the comma.
class NumberReader
{
public:
    explicit NumberReader(DecimalMark mark) : m_mark{mark} {}

    std::optional<double> Read(std::string_view text)
    {
        if (m_mark == DecimalMark::Comma)
            return ParseCommaNumber(text);
        const std::optional<double> value = ParseNumber(text);
        return value || m_mark == DecimalMark::Point ? value : ReadFirstComma(text);
    }

private:
    std::optional<double> ReadFirstComma(std::string_view text);

    DecimalMark m_mark;
};

} // namespace atlashost
