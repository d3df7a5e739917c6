#include "TimeColumn.h"

#include "Texts.h"

#include <bindings/terminal/Text.h>

#include <cmath>
#include <numeric>
#include <optional>

namespace atlashost
{
namespace
{

constexpr double NoTime = NoNumber;
constexpr std::size_t MaxQuoteLength = 30; // characters of a field in a remark

std::string Quoted(const std::string& field)
{
    return styleatlas::terminal::Printable(field, MaxQuoteLength);
}

} // namespace

void TimeColumn::Rows::Note(std::string_view field, std::size_t line)
{
    if (++count > 1)
        return;
    firstLine = line;
    firstField = field;
}

bool TimeColumn::Add(std::string_view field, std::size_t line, NumberReader& numbers)
{
    if (m_kind != TimeKind::Number && AddDate(field, line)) {
        m_kind = TimeKind::Date;
        return true;
    }
    const double number = m_kind != TimeKind::Date ? numbers.Read(field) : NoNumber;
    const bool isNumber = !std::isnan(number);
    m_times.push_back(number);
    if (isNumber)
        m_kind = TimeKind::Number;
    if (isNumber || field.empty())
        return true;
    if (m_kind == TimeKind::Row)
        m_unread.Note(field, line);
    return m_kind == TimeKind::Row;
}

// False, and no row added, if the field is no date. The first date decides whether the year is first in all.
bool TimeColumn::AddDate(std::string_view field, std::size_t line)
{
    if (const auto time = m_monthFirstTimes.empty() ? ParseTime(field) : std::nullopt) {
        m_times.push_back(*time);
        m_isYearFirst = true;
        return true;
    }
    return !m_isYearFirst && AddYearLastDate(field, line);
}

bool TimeColumn::AddYearLastDate(std::string_view field, std::size_t line)
{
    const std::optional<double> dayFirst = ParseTime(field, DateOrder::DayFirst);
    const std::optional<double> monthFirst = ParseTime(field, DateOrder::MonthFirst);
    if (!dayFirst && !monthFirst)
        return false;
    m_monthFirstTimes.resize(m_times.size(), NoTime);
    m_monthFirstTimes.push_back(monthFirst.value_or(NoTime));
    m_times.push_back(dayFirst.value_or(NoTime));
    if (!monthFirst)
        m_onlyDayFirst.Note(field, line);
    else if (!dayFirst)
        m_onlyMonthFirst.Note(field, line);
    else if (*dayFirst != *monthFirst)
        m_eitherFirst.Note(field, line);
    return true;
}

std::vector<TimeColumn::Remark> TimeColumn::Finish()
{
    if (m_kind == TimeKind::Row) {
        std::iota(m_times.begin(), m_times.end(), 1.0);
        if (m_unread.count == 0)
            return {};
        return {{m_unread.firstLine,
                 Text("\"%1\" is neither a date nor a number, as all first fields; the rows are numbered",
                      {Quoted(m_unread.firstField)})}};
    }
    if (m_onlyMonthFirst.count > m_onlyDayFirst.count) {
        m_monthFirstTimes.resize(m_times.size(), NoTime);
        m_times = std::move(m_monthFirstTimes);
    }
    return RemarksOnOrder();
}

std::vector<TimeColumn::Remark> TimeColumn::RemarksOnOrder() const
{
    std::vector<Remark> remarks;
    if (m_unread.count > 0)
        remarks.push_back(
            {m_unread.firstLine,
             Text("\"%1\" is neither a date nor a number; such first fields above the first that is: %2",
                  {Quoted(m_unread.firstField), std::to_string(m_unread.count)})});
    const Rows& fewer = m_onlyMonthFirst.count > m_onlyDayFirst.count ? m_onlyDayFirst : m_onlyMonthFirst;
    if (fewer.count > 0)
        remarks.push_back(
            {fewer.firstLine,
             Text("\"%1\" has day and month in another order than most dates; such rows left out: %2",
                  {Quoted(fewer.firstField), std::to_string(fewer.count)})});
    // Only the day is first where points are between.
    const bool isUndecided =
        m_onlyDayFirst.count == 0 && m_onlyMonthFirst.count == 0 && m_eitherFirst.count > 0;
    const std::string& field = m_eitherFirst.firstField;
    if (isUndecided && field[field.find_first_of("-/.")] != '.')
        remarks.push_back(
            {m_eitherFirst.firstLine,
             Text("\"%1\" and all other dates are read with the day first; the month could be first too",
                  {Quoted(m_eitherFirst.firstField)})});
    return remarks;
}

} // namespace atlashost
