// A separate source, so that calls are not inlined into the caller.
#include "PeerTable.h"

#include <model/QuantityDesc.h>

namespace
{

const std::unique_ptr<bench::PlainRow>* rows = nullptr;
std::size_t rowCount = 0;

} // namespace

namespace bench
{

static_assert(sizeof(PlainStyle) == sizeof(k_LineDef));
static_assert(sizeof(PlainRow) == sizeof(k_QuantityDesc));
static_assert(plainColumns == k_MaxFileColumns);

std::unique_ptr<PlainRow> MakePlainRow()
{
    auto row = std::make_unique<PlainRow>();
    row->Styles = std::make_unique<std::unique_ptr<PlainStyle>[]>(plainColumns);
    row->StyleCount = row->StyleRoom = plainColumns;
    for (int column = 0; column < plainColumns; ++column)
        row->Styles[static_cast<std::size_t>(column)] = std::make_unique<PlainStyle>();
    return row;
}

PlainTable MakePlainTable(std::size_t rows)
{
    PlainTable table;
    for (std::size_t i = 0; i < rows; ++i)
        table.push_back(MakePlainRow());
    return table;
}

void SetBareTable(const PlainTable& table)
{
    rows = table.data();
    rowCount = table.size();
}

int BareLookup(std::int16_t fileColumn, std::uint16_t quantity, std::uint8_t subQuantity, std::uint8_t index,
               std::uint16_t device, std::uint32_t flags, std::uint32_t* symbolColor,
               std::int16_t* symbolShape, std::int16_t* symbolSize, std::int16_t* symbolFill,
               std::uint32_t* lineColor, std::int16_t* lineStyle, std::int16_t* lineWidth,
               std::uint8_t* useSymbolColor)
{
    const std::unique_ptr<PlainRow>* const end = rows + rowCount;
    const std::unique_ptr<PlainRow>* row = rows;
    while (row != end && (*row)->Quantity != quantity)
        ++row;
    if (row == end)
        return 0;
    const PlainRow* best = row->get();
    while (row != end && ((*row)->Quantity != quantity || (*row)->SubQuantity != subQuantity))
        ++row;
    if (row != end)
        best = row->get();
    while (row != end && ((*row)->Quantity != quantity || (*row)->SubQuantity != subQuantity ||
                          static_cast<std::uint16_t>((*row)->Device) != device))
        ++row;
    if (row != end)
        best = row->get();
    while (row != end && ((*row)->Quantity != quantity || (*row)->SubQuantity != subQuantity ||
                          static_cast<std::uint16_t>((*row)->Device) != device || (*row)->Index != index ||
                          (*row)->Flags != flags))
        ++row;
    if (row != end)
        best = row->get();

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
