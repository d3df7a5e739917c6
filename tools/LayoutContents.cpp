#include "LayoutContents.h"

#include <algorithm>
#include <utility>

namespace atlaslayout
{

LayoutRecord::LayoutRecord(const k_LineDef& stored)
    : reserved{stored.Reserved}, style{.symbolColor = {stored.SymbolColor},
                                       .symbolShape = styleatlas::SymbolShape{stored.SymbolShape},
                                       .symbolSize = stored.SymbolSize,
                                       .symbolFill = styleatlas::SymbolFill{stored.SymbolFill},
                                       .lineColor = {stored.LineColor},
                                       .lineStyle = styleatlas::LineStyle{stored.LineStyle},
                                       .lineWidth = stored.LineWidth,
                                       .useSymbolColor = stored.UseSymbolColor}
{
}

void LayoutRecord::CopyTo(k_LineDef& stored) const
{
    stored.Reserved = reserved;
    stored.SymbolColor = style.symbolColor.value;
    stored.SymbolShape = static_cast<short>(style.symbolShape);
    stored.SymbolSize = style.symbolSize;
    stored.SymbolFill = static_cast<short>(style.symbolFill);
    stored.LineColor = style.lineColor.value;
    stored.LineStyle = static_cast<short>(style.lineStyle);
    stored.LineWidth = style.lineWidth;
    stored.UseSymbolColor = style.useSymbolColor;
}

bool LayoutRecord::operator==(const LayoutRecord& other) const
{
    const auto members = [](const LayoutRecord& record) {
        const styleatlas::Style& s = record.style;
        return std::make_tuple(record.reserved, s.symbolColor.value, s.symbolShape, s.symbolSize,
                               s.symbolFill, s.lineColor.value, s.lineStyle, s.lineWidth, s.useSymbolColor);
    };
    return members(*this) == members(other);
}

LayoutRow::LayoutRow(const k_QuantityDesc& stored) : level{stored.Level}, reservedFlag{stored.ReservedFlag}
{
    stored.GetKey(key);
    // A record that was not read to its end is null, and so are those behind it.
    for (INT_PTR i = 0; i < stored.Styles.GetSize() && stored.Styles.GetAt(i) != nullptr; ++i)
        Append(LayoutRecord{*stored.Styles.GetAt(i)});
}

const LayoutRecord* LayoutRow::RecordOf(std::size_t column) const
{
    return column < recordCount ? &std::ranges::upper_bound(runs, column, {}, &Run::end)->record : nullptr;
}

void LayoutRow::Append(const LayoutRecord& record, std::size_t columns)
{
    recordCount += columns;
    if (runs.empty() || !(runs.back().record == record))
        runs.push_back({recordCount, record});
    runs.back().end = recordCount;
}

LayoutTable::LayoutTable(LayoutContents contents) : LayoutContents{contents.head, {}}
{
    for (LayoutRow& row : contents.rows) {
        const auto [place, isNew] = positions.try_emplace(row.key, rows.size());
        if (isNew)
            rows.push_back(std::move(row));
        else
            rows[place->second] = std::move(row);
    }
}

} // namespace atlaslayout
