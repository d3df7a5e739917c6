// Text in columns, record by record.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace atlashost
{

// The separator that stands for any number of blanks and tabs.
constexpr char Blanks = ' ';

enum class Comments { Skipped, Read };

// Records end with LF, CR LF or the end of the text. A field in quotation marks can hold separators and line
// ends; a doubled mark in it stands for one. A line that begins with #, % or // is a comment.
class CsvReader
{
public:
    // Fields of a record past this number are counted, but not kept.
    static constexpr std::size_t MaxFields = 4096;

    // Of a record: the offset of its first character, and its first line, counted from 1.
    struct Position {
        std::size_t offset = 0;
        std::size_t line = 1;
    };

    // Reads from a position on. The content must outlive the reader.
    CsvReader(std::string_view content, char separator, Position start, Comments comments);

    // Reads the next record that is not an empty line; false at the end. A comment that is read is a record
    // of what follows its mark.
    bool Next();

    // Of the record read last. The fields are valid until the next record is read.
    const std::vector<std::string_view>& Fields() const { return m_fields; }
    std::size_t FieldCount() const { return m_fieldCount; }
    Position Start() const { return m_start; }
    std::size_t Line() const { return m_start.line; }
    bool IsComment() const { return m_isComment; }
    bool HasOpenQuote() const { return m_hasOpenQuote; }

    // Behind that record.
    Position End() const { return {static_cast<std::size_t>(m_rest.data() - m_content.data()), m_nextLine}; }

private:
    bool TakeComment();
    void ReadRecord();
    void ReadField();
    std::string ReadQuoted();
    std::string_view TakeToSeparator();
    std::string_view TakeToBlanks();
    void SkipBlanks();

    const std::string_view m_content;
    const char m_separator;
    const Comments m_comments;
    std::string_view m_rest;
    std::vector<std::string_view> m_fields; // of the content or of m_unquoted
    std::deque<std::string> m_unquoted;     // what fields with quotation marks stand for
    std::size_t m_fieldCount = 0;
    Position m_start;
    std::size_t m_nextLine;
    bool m_isComment = false;
    bool m_isRecordComplete = false;
    bool m_hasOpenQuote = false;
};

// The text without the blanks at its ends.
inline std::string_view WithoutBlanks(std::string_view text)
{
    if (!text.empty() && text.front() > ' ' && text.back() > ' ')
        return text; // most fields have none
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

} // namespace atlashost
