#include "MeasuredFile.h"

#include "TextEncoding.h"
#include "Texts.h"

#include <bindings/terminal/Text.h>

#include <algorithm>
#include <cmath>
#include <iterator>
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
constexpr std::size_t ProgressInterval = 1 << 20; // bytes
constexpr std::size_t MaxQuoteLength = 30;        // characters of a field or header in a remark

// By blocks of a known length, for speed.
std::size_t LineCount(std::string_view content)
{
    constexpr std::size_t BlockSize = 128;
    std::size_t count = 1;
    for (; content.size() >= BlockSize; content.remove_prefix(BlockSize)) {
        unsigned char inBlock = 0;
        for (std::size_t i = 0; i < BlockSize; ++i)
            inBlock += content[i] == '\n' ? 1 : 0;
        count += inBlock;
    }
    return count + static_cast<std::size_t>(std::ranges::count(content, '\n'));
}

class Reader
{
public:
    Reader(std::string_view content, const FileForm& form, const Progress& progress)
        : m_content{content}, m_form{form}, m_progress{progress}, m_numbers{form.decimalMark}
    {
    }

    MeasuredFile Read()
    {
        CsvReader csv{m_content, m_form.separator, ReadHeadings(), Comments::Skipped};
        ReserveRows();
        while (csv.Next()) {
            ReadRow(csv);
            if (csv.End().offset >= m_nextProgress)
                ReportProgress(csv.End().offset);
        }
        FinishTimes();
        if (m_remarkCount > MaxRemarks)
            m_file.remarks.push_back(Text("... and %1 more", {std::to_string(m_remarkCount - MaxRemarks)}));
        return std::move(m_file);
    }

private:
    // Gives the position of the first row.
    CsvReader::Position ReadHeadings()
    {
        CsvReader csv{m_content, m_form.separator, *m_form.headings, Comments::Read};
        csv.Next();
        if (csv.FieldCount() > CsvReader::MaxFields)
            throw std::runtime_error{Text("more than %1 columns", {std::to_string(CsvReader::MaxFields)})};
        std::vector<std::string_view> headings = csv.Fields();
        // Where blanks separate, date and time of day may share a heading, and numbers of rows have none.
        const bool lacksOne = m_form.separator == Blanks && headings.size() + 1 == m_form.fieldCount;
        if (m_form.hasTimeOfDay && !lacksOne)
            headings.erase(headings.begin() + 1);
        else if (!m_form.hasTimeOfDay && lacksOne)
            headings.insert(headings.begin(), std::string_view{});
        if (headings.size() < 2)
            throw std::runtime_error{Text("no column of data beside the first")};
        m_file.timeHeader = WithoutBlanks(headings.front());
        for (std::size_t i = 1; i < headings.size(); ++i)
            m_file.columns.emplace_back().header = WithoutBlanks(headings[i]);
        m_firstValue = m_form.hasTimeOfDay ? 2 : 1;
        RemarkOnOpenQuote(csv);
        return m_form.firstRow.value_or(csv.End());
    }

    std::size_t FieldsOfRow() const { return m_firstValue + m_file.columns.size(); }

    void ReserveRows()
    {
        const std::size_t maxRows = std::min(LineCount(m_content), MaxFields / FieldsOfRow());
        m_times.Reserve(maxRows);
        for (MeasuredColumn& column : m_file.columns)
            column.values.reserve(maxRows);
    }

    void ReadRow(const CsvReader& csv)
    {
        ++m_file.rows;
        RemarkOnOpenQuote(csv);
        if (m_file.rows > MaxFields / FieldsOfRow())
            throw std::runtime_error{Text("more than 16 million fields")};
        ReadTime(csv.Fields());
        const std::vector<std::string_view>& fields = csv.Fields();
        // No field is empty where blanks separate: which column a short row lacks is not known.
        const bool isShort = m_form.separator == Blanks && csv.FieldCount() < FieldsOfRow();
        std::size_t next = m_firstValue;
        for (MeasuredColumn& column : m_file.columns) {
            ReadValue(column, !isShort && next < fields.size() ? WithoutBlanks(fields[next]) : "");
            ++next;
        }
        if (isShort)
            RemarkOnFieldCount(csv);
        else if (csv.FieldCount() > next)
            RemarkOnExcess(csv);
    }

    void ReadTime(const std::vector<std::string_view>& fields)
    {
        std::string_view field = WithoutBlanks(fields.front());
        if (m_form.hasTimeOfDay) { // without which a date ends with a blank, and is none
            m_dateAndTime.assign(field).append(" ").append(fields.size() > 1 ? WithoutBlanks(fields[1]) : "");
            field = m_dateAndTime == " " ? "" : std::string_view{m_dateAndTime};
        }
        if (m_times.Add(field, m_line, m_numbers))
            return;
        if (m_times.Kind() == TimeKind::Date)
            AddRemark(Text("\"%1\" in column %2 is not a date", {Quoted(field), Quoted(m_file.timeHeader)}));
        else
            RemarkOnNumber(field, m_file.timeHeader);
    }

    void ReadValue(MeasuredColumn& column, std::string_view field)
    {
        const double value = m_numbers.Read(field);
        column.values.push_back(value);
        if (!std::isnan(value)) {
            ++column.readings;
            return;
        }
        ++column.missing;
        if (!field.empty())
            RemarkOnNumber(field, column.header);
    }

    // What holds for the whole file stands before the errors of single lines.
    void FinishTimes()
    {
        auto first = m_file.remarks.begin();
        for (const TimeColumn::Remark& remark : m_times.Finish())
            first = std::next(m_file.remarks.insert(first, WithLine(remark.line, remark.text)));
        m_file.timeKind = m_times.Kind();
        m_file.times = m_times.Take();
    }

    void ReportProgress(std::size_t done)
    {
        GoOn(m_progress, m_content.size() + done, 2 * m_content.size());
        m_nextProgress = done + ProgressInterval;
    }

    // The separators at the end of a line are no excess.
    void RemarkOnExcess(const CsvReader& csv)
    {
        const std::size_t expected = FieldsOfRow();
        if (csv.FieldCount() == csv.Fields().size() &&
            std::all_of(csv.Fields().begin() + static_cast<std::ptrdiff_t>(expected), csv.Fields().end(),
                        [](std::string_view field) { return field.empty(); }))
            return;
        RemarkOnFieldCount(csv);
    }

    void RemarkOnFieldCount(const CsvReader& csv)
    {
        AddRemark(Text("the line has %1 fields, the head line %2",
                       {std::to_string(csv.FieldCount()), std::to_string(FieldsOfRow())}));
    }

    void RemarkOnNumber(std::string_view field, const std::string& header)
    {
        AddRemark(Text("\"%1\" in column %2 is not a number", {Quoted(field), Quoted(header)}));
    }

    void RemarkOnOpenQuote(const CsvReader& csv)
    {
        m_line = csv.Line();
        if (csv.HasOpenQuote())
            AddRemark(Text("a quotation mark is never closed"));
    }

    void AddRemark(const std::string& remark)
    {
        if (++m_remarkCount <= MaxRemarks)
            m_file.remarks.push_back(WithLine(m_line, remark));
    }

    static std::string WithLine(std::size_t line, const std::string& remark)
    {
        return std::to_string(line) + ": " + remark;
    }

    static std::string Quoted(std::string_view text) { return Printable(text, MaxQuoteLength); }

    const std::string_view m_content;
    const FileForm& m_form;
    const Progress& m_progress;
    NumberReader m_numbers;
    TimeColumn m_times;
    std::string m_dateAndTime;
    MeasuredFile m_file;
    std::size_t m_firstValue = 1; // field of a row
    std::size_t m_line = 0;
    std::size_t m_nextProgress = ProgressInterval;
    std::size_t m_remarkCount = 0;
};

} // namespace

MeasuredFile ReadMeasuredFile(const std::string& path, const HeadingTest& isQuantity,
                              const Progress& progress)
{
    const std::string content = TextOf(ReadFileContent(path, progress));
    if (content.find_first_not_of("\r\n") == std::string::npos)
        throw std::runtime_error{Text("the file is empty")};
    const FileForm form = FindForm(content, isQuantity);
    if (!form.headings)
        throw std::runtime_error{form.firstRow ? Text("no line of headings above the data")
                                               : Text("no column of data beside the first")};
    return Reader{content, form, progress}.Read();
}

} // namespace atlashost
