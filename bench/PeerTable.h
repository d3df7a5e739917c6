// The peers' table: rows and records of the same size as the library's, each allocated separately, without a
// class framework.
#pragma once

#include <cstdint>
#include <memory>
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
    std::int64_t StyleCount = 0;
    std::int64_t StyleRoom = 0;
    std::int64_t StyleGrowth = 0;
    bool Same[7] = {};
};

using PlainTable = std::vector<std::unique_ptr<PlainRow>>;

// Allocates a row, then its array, then its records, as the library does.
std::unique_ptr<PlainRow> MakePlainRow();
PlainTable MakePlainTable(std::size_t rows);

// Sets the table that BareLookup searches. It stays the caller's and must not change while it is in use.
void SetBareTable(const PlainTable& table);

// GetStyleAtlas as a bare loop over an array of pointers to rows, with the same arguments, search stages and
// results.
int BareLookup(std::int16_t fileColumn, std::uint16_t quantity, std::uint8_t subQuantity, std::uint8_t index,
               std::uint16_t device, std::uint32_t flags, std::uint32_t* symbolColor,
               std::int16_t* symbolShape, std::int16_t* symbolSize, std::int16_t* symbolFill,
               std::uint32_t* lineColor, std::int16_t* lineStyle, std::int16_t* lineWidth,
               std::uint8_t* useSymbolColor);

} // namespace bench
