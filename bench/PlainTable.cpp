// The making of the peers' table, and the proof that it is laid out as the library's is.
#include "PlainTable.h"

#include <model/QuantityDesc.h>

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

} // namespace bench
