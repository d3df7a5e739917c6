#include "CsvReader.h"

#include <algorithm>
#include <utility>

namespace atlashost
{
namespace
{

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr char Comma = ',';
constexpr char Quote = '"';

} // namespace

CsvReader::CsvReader(std::string_view content) : m_rest{content}
{
    if (m_rest.starts_with(ByteOrderMark))
        m_rest.remove_prefix(ByteOrderMark.size());
}

bool CsvReader::Next()
{
    while (!m_rest.empty()) {
        m_fields.clear();
        m_unquoted.clear();
        m_fieldCount = 0;
        m_line = m_nextLine;
        do
            ReadField();
        while (!m_isRecordComplete);
        if (m_fieldCount > 1 || !m_fields.front().empty())
            return true;
    }
    return false;
}

void CsvReader::ReadField()
{
    const bool isQuoted = m_rest.starts_with(Quote);
    std::string unquoted = isQuoted ? ReadQuoted() : std::string{};
    std::string_view field = TakeToEnd();
    if (++m_fieldCount > MaxFields)
        return;
    if (isQuoted)
        field = m_unquoted.emplace_back(std::move(unquoted.append(field)));
    m_fields.push_back(field);
}

// Takes what stands in quotation marks, and the marks.
std::string CsvReader::ReadQuoted()
{
    std::string text;
    do {
        m_rest.remove_prefix(1);
        const std::string_view part = m_rest.substr(0, m_rest.find(Quote));
        m_rest.remove_prefix(part.size());
        m_nextLine += static_cast<std::size_t>(std::ranges::count(part, '\n'));
        text += part;
        if (m_rest.empty()) {
            m_hasOpenQuote = true;
            return text;
        }
        m_rest.remove_prefix(1);
        if (m_rest.starts_with(Quote))
            text += Quote;
    } while (m_rest.starts_with(Quote));
    return text;
}

// Takes what is left of a field, and the comma or line end behind it.
std::string_view CsvReader::TakeToEnd()
{
    const char* const first = m_rest.data();
    const char* const end = first + m_rest.size();
    const char* last = first;
    while (last != end && *last != Comma && *last != '\n')
        ++last;
    m_isRecordComplete = last == end || *last == '\n';
    if (last == end) {
        m_rest = {};
        return {first, last};
    }
    m_rest = {last + 1, end};
    if (!m_isRecordComplete)
        return {first, last};
    ++m_nextLine;
    return {first, last != first && last[-1] == '\r' ? last - 1 : last};
}

} // namespace atlashost
