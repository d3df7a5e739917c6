// LayoutFile.h: a layout file of the style atlas, read without its help. docs/layout-format.md tells the
// format.
#pragma once

#include "StyleWords.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace atlashost
{

// The style of one file column.
struct LayoutRecord {
    std::uint16_t reserved = 0;
    CurveStyle style;
    bool operator==(const LayoutRecord&) const = default;
};

struct RowIdentity {
    static constexpr std::uint16_t WholeGroup = 65535; // as a sub-quantity

    std::uint16_t quantity = 0;
    std::uint16_t subQuantity = 0;
    std::int16_t device = 0; // -1 for none
    std::uint8_t index = 0;
    std::uint32_t flags = 0;
    auto operator<=>(const RowIdentity&) const = default; // NOLINT(modernize-use-nullptr): no pointers
};

struct LayoutRow {
    RowIdentity identity;
    bool reservedFlag = false;
    std::uint8_t level = 0;
    std::size_t recordCount = 0; // of the records that are there, which a damaged file can claim more of
    std::size_t firstRecord = 0; // the byte at which they begin
};

struct LayoutDamage {
    std::size_t byte = 0;
    std::string reason;
};

// What the bytes of a file say. A damaged one is read up to the damage, and no count in it is believed
// further than bytes follow.
class LayoutFile
{
public:
    static constexpr std::int32_t MostRecords = 1 << 15;  // of a row
    static constexpr std::size_t MostMebibytes = 1 << 10; // of a file

    explicit LayoutFile(std::string bytes);

    std::uint32_t Version() const { return m_version; }
    std::uint32_t ColumnCount() const { return m_columnCount; }
    std::uint32_t RowCount() const { return m_rowCount; } // as claimed
    const std::vector<LayoutRow>& Rows() const { return m_rows; }
    const std::optional<LayoutDamage>& Damage() const { return m_damage; }

    // Bytes behind the last row, which nobody reads.
    std::size_t SpareBytes() const { return m_spareBytes; }

    // The record of a row of this file, counted from 0 up to its record count.
    LayoutRecord RecordOf(const LayoutRow& row, std::size_t record) const;

private:
    void ReadRows();

    std::string m_bytes;
    std::uint32_t m_version = 0;
    std::uint32_t m_columnCount = 0;
    std::uint32_t m_rowCount = 0;
    std::vector<LayoutRow> m_rows;
    std::optional<LayoutDamage> m_damage;
    std::size_t m_spareBytes = 0;
};

} // namespace atlashost
