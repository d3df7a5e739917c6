#include "CsvReader.h"

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
        m_fieldCount = 0;
        m_line = m_nextLine;
        After after = After::Field;
        while (after == After::Field) {
            std::string field;
            after = ReadField(field);
            if (++m_fieldCount <= MaxFields)
                m_fields.push_back(std::move(field));
        }
        if (m_fieldCount > 1 || !m_fields.front().empty())
            return true;
    }
    return false;
}

CsvReader::After CsvReader::ReadField(std::string& field)
{
    if (!m_rest.empty() && m_rest.front() == Quote)
        ReadQuoted(field);
    while (!m_rest.empty() && !IsAtLineEnd()) {
        const char c = Take();
        if (c == Comma)
            return After::Field;
        field += c;
    }
    if (!m_rest.empty()) // of CR LF the CR alone: Next skips an empty line
        Take();
    return After::Record;
}

void CsvReader::ReadQuoted(std::string& field)
{
    Take();
    while (!m_rest.empty()) {
        const char c = Take();
        if (c != Quote) {
            field += c;
        } else if (!m_rest.empty() && m_rest.front() == Quote) {
            field += Take();
        } else {
            return;
        }
    }
    m_hasOpenQuote = true;
}

bool CsvReader::IsAtLineEnd() const
{
    return m_rest.front() == '\n' || m_rest.starts_with("\r\n");
}

char CsvReader::Take()
{
    const char c = m_rest.front();
    m_rest.remove_prefix(1);
    if (c == '\n')
        ++m_nextLine;
    return c;
}

} // namespace atlashost
