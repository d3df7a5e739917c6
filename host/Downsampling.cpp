#include "Downsampling.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace atlashost
{
namespace
{

// The readings of one pixel column.
class Column
{
public:
    explicit Column(std::vector<Reading>& kept) : m_kept{kept} {}

    bool IsEmpty() const { return m_first == m_last; }

    void Begin(const Reading* first) { m_first = m_last = first; }
    void Add(const Reading* reading) { m_last = reading + 1; }

    // Appends the readings to keep, in the order of time.
    void Finish(std::size_t maxCount)
    {
        const auto isLower = [](const Reading& a, const Reading& b) { return a.value < b.value; };
        const std::size_t begin = m_kept.size();
        std::copy_if(m_first, m_last, std::back_inserter(m_kept),
                     [](const Reading& reading) { return !IsGap(reading); });
        const auto first = m_kept.begin() + static_cast<std::ptrdiff_t>(begin);
        if (m_kept.size() - begin > maxCount) {
            auto [lowest, highest] = std::minmax_element(first, m_kept.end(), isLower);
            const Reading kept[] = {*first, *std::min(lowest, highest), *std::max(lowest, highest),
                                    m_kept.back()};
            m_kept.resize(begin);
            m_kept.insert(m_kept.end(), std::begin(kept), std::end(kept));
        }
    }

private:
    std::vector<Reading>& m_kept;
    const Reading* m_first = nullptr;
    const Reading* m_last = nullptr;
};

} // namespace

int ColumnOf(double time, Range times, int columns)
{
    const double share = std::clamp(times.ShareOf(time), 0.0, 1.0);
    return static_cast<int>(std::lround(share * (columns - 1)));
}

std::vector<Reading> Downsampled(std::span<const Reading> readings, Range times, int columns,
                                 std::size_t maxPerColumn)
{
    std::vector<Reading> result;
    Column column{result};
    int columnNumber = 0;
    const Reading* gap = nullptr;
    for (const Reading& reading : readings) {
        if (IsGap(reading)) {
            gap = &reading;
            continue;
        }
        const int number = ColumnOf(reading.time, times, columns);
        if (column.IsEmpty() || number != columnNumber) {
            column.Finish(maxPerColumn);
            if (gap != nullptr && !result.empty())
                result.push_back(*gap);
            columnNumber = number;
            column.Begin(&reading);
        }
        column.Add(&reading);
        gap = nullptr;
    }
    column.Finish(maxPerColumn);
    return result;
}

} // namespace atlashost
