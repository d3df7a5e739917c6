#include "Host.h"
#include "Palette.h"
#include "StyleAtlas.h"
#include "StyleNames.h"

#include <algorithm>

namespace
{

constexpr const TCHAR* hostWithFileSymbols = _T("Tandrell");

void SetColor(k_LineDef& style, COLORREF color)
{
    style.LineColor = color;
    style.SymbolColor = color;
}

void SetSymbol(k_LineDef& style, INT_PTR number)
{
    style.SymbolShape = static_cast<short>(number % k_SymbolShapeCount);
    style.SymbolFill = static_cast<short>(number % k_SymbolFillCount);
}

// Calls change(record, column) for each record of the file columns in [first, end), column by column.
template <class Change> void ForEachFileColumn(const k_StyleAtlas& atlas, int first, int end, Change change)
{
    for (int column = first; column < std::min(end, k_MaxFileColumns); ++column) {
        for (INT_PTR i = 0; i < atlas.Rows.GetSize(); ++i) {
            if (k_LineDef* const pStyle = atlas.GetRowStyle(i, column))
                change(*pStyle, column);
        }
    }
}

// Calls change(record, run) for each record of the first file columns, row by row. A run is a sequence of
// rows of the same Quantity; runs are numbered from 0.
template <class Change> void ForEachRun(const k_StyleAtlas& atlas, int columns, Change change)
{
    INT_PTR run = -1;
    const k_QuantityDesc* pPrevious = nullptr;
    for (INT_PTR i = 0; i < atlas.Rows.GetSize(); ++i) {
        k_QuantityDesc* const pRow = atlas.GetRow(i);
        if (pRow == nullptr)
            continue;
        if (pPrevious == nullptr || pRow->Quantity != pPrevious->Quantity)
            ++run;
        pPrevious = pRow;
        for (int column = 0; column < columns; ++column) {
            if (k_LineDef* const pStyle = pRow->GetColumnStyle(column))
                change(*pStyle, run);
        }
    }
}

} // namespace

void k_StyleAtlas::SetFileColors(int first, int end)
{
    ForEachFileColumn(*this, first, end,
                      [](k_LineDef& style, int column) { SetColor(style, GetRuleColor(column)); });
}

void k_StyleAtlas::SetFileSymbols(int first, int end)
{
    ForEachFileColumn(*this, first, end, [](k_LineDef& style, int column) { SetSymbol(style, column); });
}

void k_StyleAtlas::SetMainQuantityColors()
{
    ForEachRun(*this, GetBoundedColumnCount(),
               [](k_LineDef& style, INT_PTR run) { SetColor(style, GetRuleColor(run)); });
}

void k_StyleAtlas::SetMainQuantitySymbols()
{
    ForEachRun(*this, GetBoundedColumnCount(),
               [](k_LineDef& style, INT_PTR run) { SetSymbol(style, run + 1); });
}

void k_StyleAtlas::ApplyDefaultStyles()
{
    if (g_ApplicationName.CompareNoCase(hostWithFileSymbols) == 0) {
        SetFileSymbols(0, k_MaxFileColumns);
        SetMainQuantityColors();
    } else {
        SetMainQuantitySymbols();
        SetFileColors(0, k_MaxFileColumns);
    }
}
