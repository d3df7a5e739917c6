#include "Calendar.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <tuple>

namespace atlashost
{
namespace
{

constexpr int SecondsOfHour = 3600;
constexpr int SecondsOfMinute = 60;

// Takes parts off the front of a text, and remembers whether all of them were there.
class Scanner
{
public:
    explicit Scanner(std::string_view text) : m_rest{text} {}

    bool IsGood() const { return m_isGood; }
    bool IsAtEnd() const { return m_rest.empty(); }

    int Number(std::size_t minDigits, std::size_t maxDigits)
    {
        int value = 0;
        std::size_t digits = 0;
        for (; digits < maxDigits && IsAtDigit(); ++digits) {
            value = 10 * value + (m_rest.front() - '0');
            m_rest.remove_prefix(1);
        }
        m_isGood = m_isGood && digits >= minDigits;
        return value;
    }

    // Two digits or four. Where the two could be a day behind a hyphen, the year may well stand in front.
    int Year(char mark)
    {
        constexpr int Pivot = 70;
        constexpr int MaxDay = 31;
        const std::size_t length = m_rest.size();
        const int year = Number(2, 4);
        const std::size_t digits = length - m_rest.size();
        m_isGood = m_isGood && digits != 3 && !(digits == 2 && mark == '-' && year <= MaxDay);
        return digits > 2 ? year : year + (year < Pivot ? 2000 : 1900);
    }

    bool TakeAnyOf(std::string_view characters)
    {
        const bool isThere = !m_rest.empty() && characters.find(m_rest.front()) != std::string_view::npos;
        if (isThere)
            m_rest.remove_prefix(1);
        return isThere;
    }

    char Expect(std::string_view characters)
    {
        const char front = m_rest.empty() ? '\0' : m_rest.front();
        m_isGood = TakeAnyOf(characters) && m_isGood;
        return front;
    }

    // The digits after a decimal mark.
    double Fraction()
    {
        double value = 0;
        double weight = 1;
        const std::size_t length = m_rest.size();
        while (IsAtDigit()) {
            weight /= 10;
            value += (m_rest.front() - '0') * weight;
            m_rest.remove_prefix(1);
        }
        m_isGood = m_isGood && m_rest.size() < length;
        return value;
    }

private:
    bool IsAtDigit() const { return !m_rest.empty() && m_rest.front() >= '0' && m_rest.front() <= '9'; }

    std::string_view m_rest;
    bool m_isGood = true;
};

// The hours of a time of day on a clock of 24, where a mark of the half of a day may follow; -1 for none.
int HoursOf24(Scanner& scanner, int hours)
{
    scanner.TakeAnyOf(" ");
    const bool isAfternoon = scanner.TakeAnyOf("Pp");
    if (!isAfternoon && !scanner.TakeAnyOf("Aa"))
        return hours;
    scanner.Expect("Mm");
    return hours < 1 || hours > 12 ? -1 : hours % 12 + (isAfternoon ? 12 : 0);
}

void TakeOffset(Scanner& scanner)
{
    if (scanner.TakeAnyOf("Zz") || !scanner.TakeAnyOf("+-"))
        return;
    scanner.Number(2, 2);
    scanner.TakeAnyOf(":");
    if (!scanner.IsAtEnd())
        scanner.Number(2, 2);
}

// Seconds; empty unless this is all that is left.
std::optional<double> TimeOfDay(Scanner& scanner)
{
    int hours = scanner.Number(1, 2);
    scanner.Expect(":");
    const int minutes = scanner.Number(2, 2);
    int seconds = 0;
    double fraction = 0;
    if (scanner.TakeAnyOf(":")) {
        seconds = scanner.Number(2, 2);
        if (scanner.TakeAnyOf(".,"))
            fraction = scanner.Fraction();
    }
    if (!scanner.IsAtEnd()) {
        hours = HoursOf24(scanner, hours);
        TakeOffset(scanner);
    }
    const double time = hours * SecondsOfHour + minutes * SecondsOfMinute + seconds + fraction;
    if (!scanner.IsGood() || !scanner.IsAtEnd() || hours < 0 || minutes > 59 || seconds > 59 ||
        time > SecondsOfDay)
        return std::nullopt;
    return time;
}

std::optional<std::chrono::year_month_day> Date(Scanner& scanner, DateOrder order)
{
    constexpr std::string_view Marks = "-/.";
    const bool isYearFirst = order == DateOrder::YearFirst;
    const int first = isYearFirst ? scanner.Number(4, 4) : scanner.Number(1, 2);
    const char mark = scanner.Expect(Marks);
    const int second = scanner.Number(1, 2);
    scanner.Expect({&mark, 1});
    const int third = isYearFirst ? scanner.Number(1, 2) : scanner.Year(mark);
    const auto [year, month, day] = isYearFirst                      ? std::tuple{first, second, third}
                                    : order == DateOrder::MonthFirst ? std::tuple{third, first, second}
                                                                     : std::tuple{third, second, first};
    const std::chrono::year_month_day date{std::chrono::year{year},
                                           std::chrono::month{static_cast<unsigned>(month)},
                                           std::chrono::day{static_cast<unsigned>(day)}};
    if (!scanner.IsGood() || !date.ok() || year < 1)
        return std::nullopt;
    return date;
}

} // namespace

std::optional<double> ParseTime(std::string_view text, DateOrder order)
{
    Scanner scanner{text};
    const auto date = Date(scanner, order);
    if (!date)
        return std::nullopt;
    if (scanner.IsAtEnd())
        return StartOf(*date);
    scanner.Expect(" Tt");
    const std::optional<double> timeOfDay = TimeOfDay(scanner);
    if (!timeOfDay)
        return std::nullopt;
    return StartOf(*date) + *timeOfDay;
}

bool IsTimeOfDay(std::string_view text)
{
    Scanner scanner{text};
    return TimeOfDay(scanner).has_value();
}

std::chrono::year_month_day DayOf(double time)
{
    return std::chrono::sys_days{std::chrono::days{static_cast<int>(std::floor(time / SecondsOfDay))}};
}

double StartOf(std::chrono::year_month_day day)
{
    return static_cast<double>(std::chrono::sys_days{day}.time_since_epoch().count()) * SecondsOfDay;
}

std::string DateText(double time)
{
    const std::chrono::year_month_day day = DayOf(time);
    std::array<char, 40> text;
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u", static_cast<int>(day.year()),
                  static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
    return text.data();
}

std::string TimeOfDayText(double time, Seconds seconds, int decimals)
{
    const double ofDay = time - StartOf(DayOf(time));
    const int whole = static_cast<int>(ofDay);
    const int hours = whole / SecondsOfHour;
    const int minutes = whole / SecondsOfMinute % 60;
    std::array<char, 40> text;
    if (seconds == Seconds::Hidden) {
        std::snprintf(text.data(), text.size(), "%02d:%02d", hours, minutes);
    } else {
        std::snprintf(text.data(), text.size(), "%02d:%02d:%02d", hours, minutes, whole % SecondsOfMinute);
    }
    std::string shown = text.data();
    if (decimals > 0) {
        const auto fraction = static_cast<long>((ofDay - whole) * std::pow(10.0, decimals));
        std::snprintf(text.data(), text.size(), ".%0*ld", decimals, fraction);
        shown += text.data();
    }
    return shown;
}

} // namespace atlashost
