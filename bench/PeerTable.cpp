// A separate source, so that calls are not inlined into the caller.
#include "PeerTable.h"

#include <model/QuantityDesc.h>

namespace
{

std::span<bench::PlainRow* const> table;

void AddArray(bench::PlainRow& row)
{
    row.Styles = std::make_unique<std::unique_ptr<bench::PlainStyle>[]>(bench::plainColumns);
    row.StyleCount = row.StyleRoom = bench::plainColumns;
}

void AddStyles(bench::PlainRow& row)
{
    for (int column = 0; column < bench::plainColumns; ++column)
        row.Styles[static_cast<std::size_t>(column)] = std::make_unique<bench::PlainStyle>();
}

} // namespace

namespace bench
{

static_assert(sizeof(PlainStyle) == sizeof(k_LineDef));
static_assert(sizeof(PlainRow) == sizeof(k_QuantityDesc));
static_assert(plainColumns == k_MaxFileColumns);

std::unique_ptr<PlainRow> MakePlainRow()
{
    auto row = std::make_unique<PlainRow>();
    AddArray(*row);
    AddStyles(*row);
    return row;
}

PlainTable MakePlainTable(std::size_t rows)
{
    PlainTable made;
    for (std::size_t i = 0; i < rows; ++i)
        made.push_back(MakePlainRow());
    return made;
}

BareTable::BareTable(std::size_t rows, Layout layout)
{
    if (layout == Layout::Close)
        m_close = std::make_unique<PlainRow[]>(rows);
    for (std::size_t i = 0; i < rows; ++i) {
        if (layout == Layout::Apart)
            m_apart.push_back(std::make_unique<PlainRow>());
        m_rows.push_back(layout == Layout::Apart ? m_apart.back().get() : &m_close[i]);
        AddArray(*m_rows.back());
    }
    for (PlainRow* const row : m_rows)
        AddStyles(*row);
}

void SetBareTable(const BareTable& bareTable)
{
    table = bareTable.Rows();
}

int BareLookup(std::int16_t fileColumn, std::uint16_t quantity, std::uint8_t subQuantity, std::uint8_t index,
               std::uint16_t device, std::uint32_t flags, std::uint32_t* symbolColor,
               std::int16_t* symbolShape, std::int16_t* symbolSize, std::int16_t* symbolFill,
               std::uint32_t* lineColor, std::int16_t* lineStyle, std::int16_t* lineWidth,
               std::uint8_t* useSymbolColor)
{
    PlainRow* const* row = table.data();
    PlainRow* const* const end = row + table.size();
    while (row != end && (*row)->Quantity != quantity)
        ++row;
    if (row == end)
        return 0;
    const PlainRow* best = *row;
    while (row != end && ((*row)->Quantity != quantity || (*row)->SubQuantity != subQuantity))
        ++row;
    if (row != end)
        best = *row;
    while (row != end && ((*row)->Quantity != quantity || (*row)->SubQuantity != subQuantity ||
                          static_cast<std::uint16_t>((*row)->Device) != device))
        ++row;
    if (row != end)
        best = *row;
    while (row != end && ((*row)->Quantity != quantity || (*row)->SubQuantity != subQuantity ||
                          static_cast<std::uint16_t>((*row)->Device) != device || (*row)->Index != index ||
                          (*row)->Flags != flags))
        ++row;
    if (row != end)
        best = *row;

    if (fileColumn < 0 || fileColumn >= best->StyleCount)
        return 0;
    const PlainStyle& style = *best->Styles[static_cast<std::size_t>(fileColumn)];
    *symbolColor = style.SymbolColor;
    *symbolShape = style.SymbolShape;
    *symbolSize = style.SymbolSize;
    *symbolFill = style.SymbolFill;
    *lineColor = style.LineColor;
    *lineStyle = style.LineStyle;
    *lineWidth = style.LineWidth;
    *useSymbolColor = style.UseSymbolColor ? 1 : 0;
    return 1;
}

} // namespace bench
