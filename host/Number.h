// Numbers in files.
#pragma once

#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace atlashost
{

constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();

// With a decimal point, by no locale, whose mark may differ from the file's. NaN for anything else, and for
// what is not finite. No std::optional, for speed.
inline double ParseNumber(std::string_view text)
{
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    double value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || stop != text.data() + text.size() || !std::isfinite(value))
        return NoNumber;
    return value;
}

// The same with a decimal comma; a number without a fraction fits both.
double ParseCommaNumber(std::string_view text);

// Whether a mark could part thousands as well: "1,234".
bool HasThousandsForm(std::string_view text, char mark);

enum class DecimalMark { Unknown, Point, Comma };

// Reads the numbers of one file. While the mark is unknown, a point is one; the first comma that can't part
// thousands makes it the comma.
class NumberReader
{
public:
    explicit NumberReader(DecimalMark mark) : m_mark{mark} {}

    double Read(std::string_view text)
    {
        if (m_mark == DecimalMark::Comma)
            return ParseCommaNumber(text);
        const double value = ParseNumber(text);
        return std::isnan(value) && m_mark == DecimalMark::Unknown ? ReadFirstComma(text) : value;
    }

private:
    double ReadFirstComma(std::string_view text);

    DecimalMark m_mark;
};

} // namespace atlashost
