#include "CsvReader.h"

#include <algorithm>
#include <utility>

namespace atlashost
{
namespace
{

constexpr char Quote = '"';

std::size_t CommentMarkLength(std::string_view line)
{
    if (line.starts_with('#') || line.starts_with('%'))
        return 1;
    return line.starts_with("//") ? 2 : 0;
}

// Of those in a line; the CR before its end is one where blanks separate.
constexpr bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

} // namespace

CsvReader::CsvReader(std::string_view content, char separator, Position start, Comments comments)
    : m_content{content}, m_separator{separator}, m_comments{comments}, m_rest{content.substr(start.offset)},
      m_nextLine{start.line}
{
}

bool CsvReader::Next()
{
    while (!m_rest.empty()) {
        m_start = End();
        m_isComment = TakeComment();
        if (m_isComment && m_comments == Comments::Skipped)
            continue;
        ReadRecord();
        if (m_fieldCount > 1 || !m_fields.front().empty())
            return true;
    }
    return false;
}

// Takes the mark of a comment, or all of a comment to be skipped.
bool CsvReader::TakeComment()
{
    const std::size_t markLength = CommentMarkLength(m_rest);
    if (markLength > 0 && m_comments == Comments::Skipped) {
        m_rest.remove_prefix(std::min(m_rest.find('\n'), m_rest.size() - 1) + 1);
        ++m_nextLine;
    } else {
        m_rest.remove_prefix(markLength);
    }
    return markLength > 0;
}

void CsvReader::ReadRecord()
{
    m_fields.clear();
    m_unquoted.clear();
    m_fieldCount = 0;
    if (m_separator == Blanks)
        SkipBlanks();
    do
        ReadField();
    while (!m_isRecordComplete);
}

void CsvReader::ReadField()
{
    // A mark in a comment that no other follows in the line is one of inches, say.
    const std::size_t next = m_isComment ? m_rest.find_first_of("\"\n", 1) : 0;
    const bool isQuoted = m_rest.starts_with(Quote) && next < m_rest.size() && m_rest[next] == Quote;
    std::string unquoted = isQuoted ? ReadQuoted() : std::string{};
    std::string_view field = m_separator == Blanks ? TakeToBlanks() : TakeToSeparator();
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

// Takes what is left of a field, and the separator or line end behind it.
std::string_view CsvReader::TakeToSeparator()
{
    const char separator = m_separator;
    const char* const first = m_rest.data();
    const char* const end = first + m_rest.size();
    const char* last = first;
    while (last != end && *last != separator && *last != '\n')
        ++last;
    m_isRecordComplete = last == end || *last == '\n';
    if (last == end) {
        m_rest.remove_prefix(m_rest.size());
        return {first, last};
    }
    m_rest = {last + 1, end};
    if (!m_isRecordComplete)
        return {first, last};
    ++m_nextLine;
    return {first, last != first && last[-1] == '\r' ? last - 1 : last};
}

// The same where blanks separate; those at the end of a line do not.
std::string_view CsvReader::TakeToBlanks()
{
    std::size_t length = 0;
    while (length < m_rest.size() && m_rest[length] != '\n' && !IsBlank(m_rest[length]))
        ++length;
    const std::string_view field = m_rest.substr(0, length);
    m_rest.remove_prefix(length);
    SkipBlanks();
    m_isRecordComplete = m_rest.empty() || m_rest.front() == '\n';
    if (!m_rest.empty() && m_isRecordComplete) {
        m_rest.remove_prefix(1);
        ++m_nextLine;
    }
    return field;
}

void CsvReader::SkipBlanks()
{
    while (!m_rest.empty() && IsBlank(m_rest.front()))
        m_rest.remove_prefix(1);
}

} // namespace atlashost
