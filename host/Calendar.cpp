#include "Calendar.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

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

    int Number(std::size_t digits)
    {
        int value = 0;
        const std::string_view text = m_rest.substr(0, digits);
        const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        const bool isNumber = text.size() == digits && error == std::errc{} &&
                              stop == text.data() + text.size() && text.front() != '-';
        m_isGood = m_isGood && isNumber;
        m_rest.remove_prefix(text.size());
        return value;
    }

    bool TakeAnyOf(std::string_view characters)
    {
        const bool isThere = !m_rest.empty() && characters.find(m_rest.front()) != std::string_view::npos;
        if (isThere)
            m_rest.remove_prefix(1);
        return isThere;
    }

    void Expect(std::string_view characters) { m_isGood = TakeAnyOf(characters) && m_isGood; }

    // The digits after a decimal mark.
    double Fraction()
    {
        double value = 0;
        double weight = 1;
        const std::size_t length = m_rest.size();
        while (!m_rest.empty() && m_rest.front() >= '0' && m_rest.front() <= '9') {
            weight /= 10;
            value += (m_rest.front() - '0') * weight;
            m_rest.remove_prefix(1);
        }
        m_isGood = m_isGood && m_rest.size() < length;
        return value;
    }

private:
    std::string_view m_rest;
    bool m_isGood = true;
};

double TimeOfDay(Scanner& scanner)
{
    const int hours = scanner.Number(2);
    scanner.Expect(":");
    const int minutes = scanner.Number(2);
    int seconds = 0;
    double fraction = 0;
    if (scanner.TakeAnyOf(":")) {
        seconds = scanner.Number(2);
        if (scanner.TakeAnyOf(".,"))
            fraction = scanner.Fraction();
    }
    if (hours > 23 || minutes > 59 || seconds > 59)
        return std::nan("");
    return hours * SecondsOfHour + minutes * SecondsOfMinute + seconds + fraction;
}

} // namespace

std::optional<double> ParseTime(std::string_view text)
{
    Scanner scanner{text};
    const std::chrono::year year{scanner.Number(4)};
    scanner.Expect("-");
    const std::chrono::month month{static_cast<unsigned>(scanner.Number(2))};
    scanner.Expect("-");
    const std::chrono::year_month_day day{year, month,
                                          std::chrono::day{static_cast<unsigned>(scanner.Number(2))}};
    if (!scanner.IsGood() || !day.ok() || year < std::chrono::year{1})
        return std::nullopt;
    double timeOfDay = 0;
    if (!scanner.IsAtEnd()) {
        scanner.Expect(" T");
        timeOfDay = TimeOfDay(scanner);
        scanner.TakeAnyOf("Z");
    }
    if (!scanner.IsGood() || !scanner.IsAtEnd() || std::isnan(timeOfDay))
        return std::nullopt;
    return StartOf(day) + timeOfDay;
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
