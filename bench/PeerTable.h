// The peers' table: rows and records of the same size as the library's, each allocated separately, without a
// class framework.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace bench
{

constexpr int plainColumns = 32; // records of a row

struct PlainStyle {
    virtual ~PlainStyle() = default; // as in the library: a pointer precedes the fields
    std::uint16_t Reserved = 0;
    std::uint32_t LineColor = 0;
    std::uint32_t SymbolColor = 0;
    std::int16_t SymbolShape = 0;
    std::int16_t SymbolSize = 10;
    std::int16_t SymbolFill = 1;
    std::int16_t LineStyle = 0;
    std::int16_t LineWidth = 1;
    bool UseSymbolColor = false;

    friend bool operator==(const PlainStyle&, const PlainStyle&) = default;
};

struct PlainRow {
    virtual ~PlainRow() = default;
    std::int16_t Device = 0;
    std::uint16_t Quantity = 0;
    std::uint16_t SubQuantity = 0;
    std::uint8_t Index = 0;
    std::uint32_t Flags = 0;
    std::int32_t ColumnCount = plainColumns;
    bool ReservedFlag = false;
    std::uint8_t Level = 0;
    void* StylesPointer = nullptr; // from here on, the layout of the library's record list
    std::unique_ptr<std::unique_ptr<PlainStyle>[]> Styles;
    std::int32_t StyleCount = 0;
    std::int32_t StyleRoom = 0;
    bool Same[7] = {};
};

using PlainTable = std::vector<std::unique_ptr<PlainRow>>;

// Allocates a row, then its array, then its records, as the library does.
std::unique_ptr<PlainRow> MakePlainRow();
PlainTable MakePlainTable(std::size_t rows);

// How the rows of a table to search lie in memory: each on its own, with its array of pointers behind it, or
// one behind the other, as the library's do. Their records lie elsewhere in both.
enum class Layout { Apart, Close };

// A table for BareLookup.
class BareTable
{
public:
    BareTable(std::size_t rows, Layout layout);
    std::span<PlainRow* const> Rows() const { return m_rows; }

private:
    PlainTable m_apart;
    std::unique_ptr<PlainRow[]> m_close;
    std::vector<PlainRow*> m_rows;
};

// Sets the table that BareLookup searches. It stays the caller's and must not change while it is in use.
void SetBareTable(const BareTable& table);

// GetStyleAtlas as a bare loop over an array of pointers to rows, with the same arguments, search stages and
// results.
int BareLookup(std::int16_t fileColumn, std::uint16_t quantity, std::uint8_t subQuantity, std::uint8_t index,
               std::uint16_t device, std::uint32_t flags, std::uint32_t* symbolColor,
               std::int16_t* symbolShape, std::int16_t* symbolSize, std::int16_t* symbolFill,
               std::uint32_t* lineColor, std::int16_t* lineStyle, std::int16_t* lineWidth,
               std::uint8_t* useSymbolColor);

} // namespace bench
