#include "LayoutFile.h"

#include "Text.h"

#include <algorithm>
#include <string_view>
#include <type_traits>
#include <utility>

namespace atlashost
{
namespace
{

constexpr std::size_t HeaderSize = 12;
constexpr std::size_t RowHeadSize = 17;
constexpr std::size_t RecordSize = 21;

// Takes little-endian numbers off the front of bytes that hold them all.
class Numbers
{
public:
    explicit Numbers(std::string_view bytes) : m_bytes{bytes} {}

    template <class Number> Number Take()
    {
        std::make_unsigned_t<Number> value = 0;
        for (std::size_t i = 0; i < sizeof value; ++i) {
            const auto byte = static_cast<unsigned char>(m_bytes[i]);
            value = static_cast<decltype(value)>(value | std::uint64_t{byte} << (8 * i));
        }
        m_bytes.remove_prefix(sizeof value);
        return static_cast<Number>(value);
    }

    bool TakeFlag() { return Take<std::uint8_t>() != 0; }

private:
    std::string_view m_bytes;
};

} // namespace

LayoutFile::LayoutFile(std::string bytes) : m_bytes{std::move(bytes)}
{
    if (m_bytes.size() < HeaderSize) {
        m_damage = {0, "the file ends within its head"};
        return;
    }
    Numbers numbers{m_bytes};
    m_version = numbers.Take<std::uint32_t>();
    m_columnCount = numbers.Take<std::uint32_t>();
    m_rowCount = numbers.Take<std::uint32_t>();
    ReadRows();
}

void LayoutFile::ReadRows()
{
    std::size_t position = HeaderSize;
    for (std::uint32_t i = 0; i < m_rowCount; ++i) {
        const std::string name = "row " + std::to_string(i);
        if (m_bytes.size() - position < RowHeadSize) {
            m_damage = {position, "the file claims " + Counted(m_rowCount, "row") +
                                      ", but ends within the head of " + name};
            return;
        }
        Numbers numbers{std::string_view{m_bytes}.substr(position)};
        const auto claimed = numbers.Take<std::int32_t>();
        if (claimed < 0 || claimed > MostRecords) {
            m_damage = {position, name + " claims " + std::to_string(claimed) + " records, of which 0 to " +
                                      std::to_string(MostRecords) + " are allowed"};
            return;
        }
        LayoutRow& row = m_rows.emplace_back();
        row.identity.device = numbers.Take<std::int16_t>();
        row.identity.quantity = numbers.Take<std::uint16_t>();
        row.identity.subQuantity = numbers.Take<std::uint16_t>();
        row.identity.index = numbers.Take<std::uint8_t>();
        row.identity.flags = numbers.Take<std::uint32_t>();
        row.reservedFlag = numbers.TakeFlag();
        row.level = numbers.Take<std::uint8_t>();
        row.firstRecord = position + RowHeadSize;
        row.recordCount =
            std::min(static_cast<std::size_t>(claimed), (m_bytes.size() - row.firstRecord) / RecordSize);
        position = row.firstRecord + row.recordCount * RecordSize;
        if (row.recordCount < static_cast<std::size_t>(claimed)) {
            m_damage = {position, name + " claims " + Counted(static_cast<std::size_t>(claimed), "record") +
                                      ", but the file ends within record " + std::to_string(row.recordCount)};
            return;
        }
    }
    m_spareBytes = m_bytes.size() - position;
}

LayoutRecord LayoutFile::RecordOf(const LayoutRow& row, std::size_t record) const
{
    Numbers numbers{std::string_view{m_bytes}.substr(row.firstRecord + record * RecordSize, RecordSize)};
    LayoutRecord result;
    result.reserved = numbers.Take<std::uint16_t>();
    CurveStyle& style = result.style;
    style.lineColor = numbers.Take<std::uint32_t>();
    style.symbolColor = numbers.Take<std::uint32_t>();
    style.symbolShape = numbers.Take<std::int16_t>();
    style.symbolSize = numbers.Take<std::int16_t>();
    style.symbolFill = numbers.Take<std::int16_t>();
    style.lineStyle = numbers.Take<std::int16_t>();
    style.lineWidth = numbers.Take<std::int16_t>();
    style.useSymbolColor = numbers.TakeFlag() ? 1 : 0;
    return result;
}

} // namespace atlashost
