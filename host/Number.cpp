#include "Number.h"

#include <algorithm>
#include <array>

namespace atlashost
{

double ParseCommaNumber(std::string_view text)
{
    std::array<char, 64> copy;
    if (text.size() > copy.size() || text.find('.') != std::string_view::npos)
        return NoNumber;
    std::ranges::replace_copy(text, copy.begin(), ',', '.');
    return ParseNumber({copy.data(), text.size()});
}

bool HasThousandsForm(std::string_view text, char mark)
{
    if (text.starts_with('+') || text.starts_with('-'))
        text.remove_prefix(1);
    const std::size_t whole = text.find(mark);
    return whole != std::string_view::npos && whole >= 1 && whole <= 3 && text.front() != '0' &&
           text.size() == whole + 4;
}

double NumberReader::ReadFirstComma(std::string_view text)
{
    if (text.find(',') == std::string_view::npos || HasThousandsForm(text, ','))
        return NoNumber;
    const double value = ParseCommaNumber(text);
    if (!std::isnan(value))
        m_mark = DecimalMark::Comma;
    return value;
}

} // namespace atlashost
