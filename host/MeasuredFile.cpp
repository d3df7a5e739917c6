#include "MeasuredFile.h"

#include "Calendar.h"
#include "CsvReader.h"
#include "FileContent.h"
#include "Texts.h"

#include <bindings/terminal/Text.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace atlashost
{
namespace
{

using styleatlas::terminal::Printable;

constexpr std::size_t MaxFields = 16'000'000; // a short field takes more room in memory than in the file
constexpr std::size_t MaxRemarks = 20;
constexpr std::size_t MaxQuoteLength = 30; // characters of a field or header in a remark
constexpr double NoValue = std::numeric_limits<double>::quiet_NaN();

// Not by the locale, whose decimal mark may differ from the file's.
std::optional<double> ParseNumber(std::string_view text)
{
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    double value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || stop != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

class Reader
{
public:
    explicit Reader(std::string_view content)
        : m_csv{content}, m_lines{static_cast<std::size_t>(std::ranges::count(content, '\n')) + 1}
    {
    }

    MeasuredFile Read()
    {
        ReadHead();
        while (m_csv.Next())
            ReadRow();
        if (m_file.timeKind == TimeKind::Row)
            std::iota(m_file.times.begin(), m_file.times.end(), 1.0);
        if (m_remarkCount > MaxRemarks)
            m_file.remarks.push_back(Text("... and %1 more", {std::to_string(m_remarkCount - MaxRemarks)}));
        return std::move(m_file);
    }

private:
    void ReadHead()
    {
        if (!m_csv.Next())
            throw std::runtime_error{Text("the file is empty")};
        if (m_csv.FieldCount() > CsvReader::MaxFields)
            throw std::runtime_error{Text("more than %1 columns", {std::to_string(CsvReader::MaxFields)})};
        if (m_csv.FieldCount() < 2)
            throw std::runtime_error{Text("no column of data beside the first")};
        m_file.timeHeader = WithoutBlanks(m_csv.Fields().front());
        for (std::size_t i = 1; i < m_csv.FieldCount(); ++i)
            m_file.columns.emplace_back().header = WithoutBlanks(m_csv.Fields()[i]);
        RemarkOnOpenQuote();
        const std::size_t maxRows = std::min(m_lines, MaxFields / m_csv.FieldCount());
        m_file.times.reserve(maxRows);
        for (MeasuredColumn& column : m_file.columns)
            column.values.reserve(maxRows);
    }

    void ReadRow()
    {
        ++m_file.rows;
        RemarkOnOpenQuote();
        const std::size_t expected = m_file.columns.size() + 1;
        if (m_file.rows > MaxFields / expected)
            throw std::runtime_error{Text("more than 16 million fields")};
        if (m_csv.FieldCount() > expected)
            AddRemark(Text("the line has %1 fields, the head line %2",
                           {std::to_string(m_csv.FieldCount()), std::to_string(expected)}));
        m_file.times.push_back(TimeOf(WithoutBlanks(m_csv.Fields().front())));
        for (std::size_t i = 1; i < expected; ++i)
            Take(m_file.columns[i - 1], i < m_csv.Fields().size() ? WithoutBlanks(m_csv.Fields()[i]) : "");
    }

    double TimeOf(std::string_view field)
    {
        const std::optional<double> date =
            m_file.timeKind != TimeKind::Number ? ParseTime(field) : std::nullopt;
        const std::optional<double> number =
            m_file.timeKind != TimeKind::Date ? ParseNumber(field) : std::nullopt;
        if (date)
            m_file.timeKind = TimeKind::Date;
        else if (number)
            m_file.timeKind = TimeKind::Number;
        return date ? *date : number.value_or(NoValue);
    }

    void Take(MeasuredColumn& column, std::string_view field)
    {
        const std::optional<double> value = ParseNumber(field);
        column.values.push_back(value.value_or(NoValue));
        if (value) {
            ++column.readings;
            return;
        }
        ++column.missing;
        if (!field.empty())
            AddRemark(Text("\"%1\" in column %2 is not a number",
                           {Printable(field, MaxQuoteLength), Printable(column.header, MaxQuoteLength)}));
    }

    void RemarkOnOpenQuote()
    {
        if (m_csv.HasOpenQuote())
            AddRemark(Text("a quotation mark is never closed"));
    }

    void AddRemark(const std::string& remark)
    {
        if (++m_remarkCount <= MaxRemarks)
            m_file.remarks.push_back(std::to_string(m_csv.Line()) + ": " + remark);
    }

    CsvReader m_csv;
    std::size_t m_lines;
    MeasuredFile m_file;
    std::size_t m_remarkCount = 0;
};

} // namespace

std::string_view WithoutBlanks(std::string_view text)
{
    constexpr std::string_view Blanks = " \t";
    if (!text.empty() && text.front() > ' ' && text.back() > ' ')
        return text; // most fields have none
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

MeasuredFile ReadMeasuredFile(const std::string& path)
{
    const std::string content = ReadFileContent(path);
    return Reader{content}.Read();
}

} // namespace atlashost
