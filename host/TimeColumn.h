// The times of the rows of a measured file.
#pragma once

#include "Calendar.h"
#include "Number.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace atlashost
{

// What the first column of a file holds, by its first field that is a date or a number; without one, the rows
// are numbered from 1.
enum class TimeKind { Row, Date, Number };

// Reads the first fields. Where the year stands last, day and month are in the order that fits most rows, the
// day first if both orders fit as many.
class TimeColumn
{
public:
    struct Remark {
        std::size_t line = 0;
        std::string text;
    };

    void Reserve(std::size_t rows) { m_times.reserve(rows); }

    // Adds a row; its time is NaN if the field is not of the column's kind. False if that is to be remarked
    // on.
    bool Add(std::string_view field, std::size_t line, NumberReader& numbers);

    TimeKind Kind() const { return m_kind; }

    // Decides what depends on the whole column, and says what a reader of the file may not expect.
    std::vector<Remark> Finish();

    // One for each row, dates as in Calendar.h.
    std::vector<double> Take() { return std::move(m_times); }

private:
    // Rows of one sort.
    struct Rows {
        std::size_t count = 0;
        std::size_t firstLine = 0;
        std::string firstField;

        void Note(std::string_view field, std::size_t line);
    };

    bool AddDate(std::string_view field, std::size_t line);
    bool AddYearLastDate(std::string_view field, std::size_t line);
    std::vector<Remark> RemarksOnOrder() const;

    TimeKind m_kind = TimeKind::Row;
    bool m_isYearFirst = false;
    std::vector<double> m_times;           // dates with the year last as if the day were first
    std::vector<double> m_monthFirstTimes; // the same as if the month were first; empty if no year is last
    Rows m_unread;                         // while the kind is Row
    Rows m_onlyDayFirst;                   // dates that fit one order
    Rows m_onlyMonthFirst;
    Rows m_eitherFirst; // dates that are another day in each order
};

} // namespace atlashost
