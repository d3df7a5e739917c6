#include "FileForm.h"

#include "Calendar.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>
#include <vector>

namespace atlashost
{
namespace
{

constexpr std::size_t MaxBytes = 32 << 10;
constexpr std::size_t MaxRecords = 200;
constexpr char Separators[] = {',', ';', '\t', Blanks};

bool IsDate(std::string_view field)
{
    return ParseTime(field) || ParseTime(field, DateOrder::DayFirst) ||
           ParseTime(field, DateOrder::MonthFirst);
}

// "24-02-13" is no date, as any of its numbers could be the year, but it is a whole field.
bool HasDateForm(std::string_view field)
{
    return std::ranges::count(field, '-') == 2 && field.front() != '-' && field.back() != '-' &&
           field.find_first_not_of("0123456789-") == std::string_view::npos;
}

bool IsReadable(std::string_view field)
{
    return !std::isnan(ParseNumber(field)) || !std::isnan(ParseCommaNumber(field)) || IsDate(field) ||
           IsTimeOfDay(field) || HasDateForm(field);
}

struct Record {
    CsvReader::Position start;
    std::vector<std::string> fields;
    bool isComment = false;
    std::size_t readable = 0;   // fields
    std::size_t unreadable = 0; // fields that are not empty
    std::ptrdiff_t worth = 0;   // characters in readable fields less those in others
    bool isFirstReadable = false;

    bool HasColumns() const { return fields.size() > 1; }
    bool CanBeRow() const { return HasColumns() && !isComment; }
    bool IsCertainRow() const { return CanBeRow() && isFirstReadable && readable > unreadable; }
};

using Sample = std::vector<Record>;

Record RecordOf(const CsvReader& csv)
{
    Record record{csv.Start(), {}, csv.IsComment()};
    for (const std::string_view wholeField : csv.Fields()) {
        const std::string_view field = WithoutBlanks(wholeField);
        record.fields.emplace_back(field);
        if (field.empty())
            continue;
        const bool isReadable = IsReadable(field);
        ++(isReadable ? record.readable : record.unreadable);
        record.worth += (isReadable ? 1 : -1) * static_cast<std::ptrdiff_t>(field.size());
        record.isFirstReadable = record.isFirstReadable || (isReadable && record.fields.size() == 1);
    }
    return record;
}

// Of whole records, unless the first is too long.
Sample SampleBy(char separator, std::string_view content)
{
    const std::string_view looked = content.substr(0, MaxBytes);
    CsvReader csv{looked, separator, {}, Comments::Read};
    Sample sample;
    while (sample.size() < MaxRecords && csv.Next()) {
        if (csv.End().offset == looked.size() && looked.size() < content.size() && !sample.empty())
            break;
        sample.push_back(RecordOf(csv));
    }
    return sample;
}

std::ptrdiff_t WorthOf(const Sample& sample)
{
    std::ptrdiff_t worth = 0;
    for (const Record& record : sample) {
        if (record.CanBeRow())
            worth += std::max<std::ptrdiff_t>(record.worth, 0);
    }
    return worth;
}

bool HasColumnsInEveryLine(const Sample& sample)
{
    return std::ranges::all_of(sample,
                               [](const Record& record) { return record.isComment || record.HasColumns(); });
}

// Without data the first separator that stands in a line decides.
char SeparatorOf(std::string_view content, Sample& sample)
{
    char best = Separators[0];
    std::ptrdiff_t worthOfBest = -1;
    for (const char separator : Separators) {
        if (separator == Blanks && best == '\t' && worthOfBest > 0 && HasColumnsInEveryLine(sample))
            continue; // blanks stand in the fields
        Sample other = SampleBy(separator, content);
        const std::ptrdiff_t worth = std::ranges::any_of(other, &Record::HasColumns) ? WorthOf(other) : -1;
        if (worth > worthOfBest || sample.empty()) {
            std::tie(best, worthOfBest) = std::pair{separator, worth};
            sample = std::move(other);
        }
    }
    return best;
}

// The first record that begins with a date or a number and can be read for the most part, else the first with
// anything to read.
Sample::const_iterator ReadableRow(const Sample& sample)
{
    const auto row = std::ranges::find_if(sample, &Record::IsCertainRow);
    if (row != sample.end())
        return row;
    return std::ranges::find_if(
        sample, [](const Record& record) { return record.CanBeRow() && record.readable > 0; });
}

// How well a record suits as the headings of columns.
auto SuitAsHeadings(const Record& record, std::size_t fieldCount, const HeadingTest& isQuantity)
{
    const auto named = std::ranges::count_if(
        record.fields, [&](const std::string& field) { return isQuantity && isQuantity(field); });
    const bool isText = record.unreadable > 0 && !record.isFirstReadable &&
                        (record.readable == 0 || !record.fields.front().empty());
    return std::tuple{named, isText, record.fields.size() == fieldCount, !record.isComment};
}

// The row itself if nothing above it has columns.
Sample::const_iterator Headings(const Sample& sample, Sample::const_iterator row,
                                const HeadingTest& isQuantity)
{
    const std::size_t fieldCount = row != sample.end() ? row->fields.size() : 0;
    auto best = row;
    for (auto record = sample.begin(); record != row; ++record) {
        if (record->HasColumns() && (best == row || SuitAsHeadings(*record, fieldCount, isQuantity) >
                                                        SuitAsHeadings(*best, fieldCount, isQuantity)))
            best = record;
    }
    return best;
}

// A row can be empty above the first that can be read; what has text alone is of units.
Sample::const_iterator FirstRow(Sample::const_iterator headings, Sample::const_iterator readableRow)
{
    return std::find_if(std::next(headings), readableRow, [](const Record& record) {
        return record.CanBeRow() && (record.readable > 0 || record.unreadable == 0);
    });
}

DecimalMark MarkOf(const Sample& sample, Sample::const_iterator firstRow)
{
    std::ptrdiff_t commas = 0;
    std::ptrdiff_t points = 0;
    for (auto record = firstRow; record != sample.end(); ++record) {
        for (const std::string& field : record->fields) {
            const bool hasPoint = field.find('.') != std::string::npos;
            const bool hasComma = field.find(',') != std::string::npos;
            commas +=
                hasComma && !HasThousandsForm(field, ',') && !std::isnan(ParseCommaNumber(field)) ? 1 : 0;
            points += hasPoint && !HasThousandsForm(field, '.') && !std::isnan(ParseNumber(field)) ? 1 : 0;
        }
    }
    return commas > points ? DecimalMark::Comma : points > 0 ? DecimalMark::Point : DecimalMark::Unknown;
}

} // namespace

FileForm FindForm(std::string_view content, const HeadingTest& isQuantity)
{
    FileForm form;
    Sample sample;
    form.separator = SeparatorOf(content, sample);
    const auto readableRow = ReadableRow(sample);
    form.decimalMark = MarkOf(sample, readableRow);
    const auto headings = Headings(sample, readableRow, isQuantity);
    const bool isRow = headings == readableRow;
    if (readableRow != sample.end() && !(isRow && !headings->IsCertainRow())) {
        const auto row = isRow ? readableRow : FirstRow(headings, readableRow);
        form.firstRow = row->start;
        form.fieldCount = row->fields.size();
        form.hasTimeOfDay = form.fieldCount > 2 && IsDate(readableRow->fields[0]) &&
                            readableRow->fields[0].find(':') == std::string::npos &&
                            IsTimeOfDay(readableRow->fields[1]);
    }
    if (headings != sample.end() && !(isRow && headings->IsCertainRow()))
        form.headings = headings->start;
    return form;
}

} // namespace atlashost
