// Comma-separated values, record by record.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace atlashost
{

// Records end with LF, CR LF or the end of the text. A field in quotation marks can hold commas and line
// ends; a doubled mark in it stands for one.
class CsvReader
{
public:
    // Fields of a record past this number are counted, but not kept.
    static constexpr std::size_t MaxFields = 4096;

    // The content must outlive the reader. A byte order mark is skipped.
    explicit CsvReader(std::string_view content);

    // Reads the next record that is not an empty line; false at the end.
    bool Next();

    // Of the record read last. The fields are valid until the next record is read.
    const std::vector<std::string_view>& Fields() const { return m_fields; }
    std::size_t FieldCount() const { return m_fieldCount; }
    std::size_t Line() const { return m_line; } // its first line, counted from 1
    bool HasOpenQuote() const { return m_hasOpenQuote; }

private:
    void ReadField();
    std::string ReadQuoted();
    std::string_view TakeToEnd();

    std::string_view m_rest;
    std::vector<std::string_view> m_fields; // of the content or of m_unquoted
    std::deque<std::string> m_unquoted;     // what fields with quotation marks stand for
    std::size_t m_fieldCount = 0;
    std::size_t m_line = 0;
    std::size_t m_nextLine = 1;
    bool m_isRecordComplete = false;
    bool m_hasOpenQuote = false;
};

} // namespace atlashost
