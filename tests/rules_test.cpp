// The bulk rules: distinct styles for a whole table.
#include "support/ScriptedModel.h"

#include <model/Host.h>
#include <model/Palette.h>

#include <gtest/gtest.h>
#include <tuple>

namespace
{

constexpr COLORREF brown = 0x002AA5;
constexpr COLORREF lightGrey = 0xC0C0C0;

struct Symbol {
    int Shape;
    int Fill;
    friend bool operator==(const Symbol&, const Symbol&) = default;
};

Symbol SymbolOf(const k_StyleAtlas& atlas, INT_PTR row, int column)
{
    const k_LineDef& style = *atlas.GetRowStyle(row, column);
    return {style.SymbolShape, style.SymbolFill};
}

// Both colours of a record, which every rule sets alike.
COLORREF ColorOf(const k_StyleAtlas& atlas, INT_PTR row, int column)
{
    const k_LineDef& style = *atlas.GetRowStyle(row, column);
    EXPECT_EQ(style.LineColor, style.SymbolColor);
    return style.LineColor;
}

void AddRows(k_StyleAtlas& atlas, WORD quantities)
{
    for (WORD i = 1; i <= quantities; ++i)
        atlas.AddRow({i, 0, 0, 0, 0}, 0);
}

TEST(FileRules, GiveEachColumnItsSymbolAndColour)
{
    k_StyleAtlas atlas;
    AddRows(atlas, 2);
    atlas.SetFileSymbols(0, 32);
    atlas.SetFileColors(0, 32);
    const std::pair<int, Symbol> expected[] = {{0, {0, 0}}, {1, {1, 1}},  {2, {2, 2}},  {3, {3, 0}},
                                               {9, {9, 0}}, {10, {0, 1}}, {30, {0, 0}}, {31, {1, 1}}};
    for (const auto& [column, symbol] : expected) {
        for (const INT_PTR row : {0, 1})
            EXPECT_EQ(SymbolOf(atlas, row, column), symbol) << column;
    }
    EXPECT_EQ(ColorOf(atlas, 0, 0), 0U);
    EXPECT_EQ(ColorOf(atlas, 1, 1), brown);
    EXPECT_EQ(ColorOf(atlas, 1, 31), lightGrey);
}

TEST(FileRules, WalkTheGivenColumnsOnly)
{
    k_StyleAtlas atlas;
    AddRows(atlas, 1);
    atlas.SetFileColors(2, 4);
    atlas.SetFileSymbols(4, 4);
    atlas.SetFileSymbols(9, 3);
    atlas.SetFileColors(31, 0x7FFFFFFF); // no further than the table answers
    EXPECT_EQ(ColorOf(atlas, 0, 1), 0U);
    EXPECT_EQ(ColorOf(atlas, 0, 3), 0x005500U);
    EXPECT_EQ(ColorOf(atlas, 0, 4), 0U);
    EXPECT_EQ(ColorOf(atlas, 0, 31), lightGrey);
    EXPECT_EQ(SymbolOf(atlas, 0, 4), (Symbol{0, 1}));
}

TEST(QuantityRules, CountRunsOfNeighbouringRows)
{
    k_StyleAtlas atlas;
    for (const auto& [quantity, device] : {std::pair<WORD, short>{5, 0}, {5, 1}, {6, 0}, {5, 0}, {5, 0}})
        atlas.AddRow({quantity, 0, 0, device, 0}, 0);
    delete atlas.GetRow(3); // an empty slot ends no run
    atlas.Rows.SetAt(3, nullptr);
    atlas.SetMainQuantitySymbols();
    atlas.SetMainQuantityColors();
    EXPECT_EQ(SymbolOf(atlas, 0, 0), (Symbol{1, 1}));
    EXPECT_EQ(SymbolOf(atlas, 1, 31), (Symbol{1, 1}));
    EXPECT_EQ(SymbolOf(atlas, 2, 0), (Symbol{2, 2}));
    EXPECT_EQ(SymbolOf(atlas, 4, 0), (Symbol{3, 0}));
    EXPECT_EQ(ColorOf(atlas, 1, 0), 0U);
    EXPECT_EQ(ColorOf(atlas, 2, 0), brown);
    EXPECT_EQ(ColorOf(atlas, 4, 0), 0x404000U);
}

TEST(QuantityRules, GoRoundThePaletteWithoutTwoBlackNeighbours)
{
    k_StyleAtlas atlas;
    atlas.ColumnCount = 1;
    AddRows(atlas, 200);
    atlas.SetMainQuantityColors();
    atlas.SetMainQuantitySymbols();
    EXPECT_EQ(SymbolOf(atlas, 9, 0), (Symbol{0, 1})); // the tenth run
    EXPECT_EQ(ColorOf(atlas, 38, 0), 0xFAE6E6U);
    EXPECT_EQ(ColorOf(atlas, 39, 0), 0U);
    EXPECT_EQ(ColorOf(atlas, 40, 0), brown);
    for (INT_PTR row = 1; row < 200; ++row)
        EXPECT_NE(ColorOf(atlas, row, 0), ColorOf(atlas, row - 1, 0)) << row;
}

TEST(QuantityRules, WalkColumnCountButNotBeyondWhatARowHolds)
{
    k_StyleAtlas atlas;
    atlas.ColumnCount = 2;
    AddRows(atlas, 2);
    atlas.ColumnCount = 0xFFFFFFFF; // as a file can say
    atlas.SetMainQuantityColors();
    EXPECT_EQ(atlas.GetRow(1)->Styles.GetSize(), 2);
    EXPECT_EQ(ColorOf(atlas, 1, 1), brown);
    atlas.ColumnCount = 1;
    atlas.SetMainQuantitySymbols();
    EXPECT_EQ(SymbolOf(atlas, 1, 0), (Symbol{2, 2}));
    EXPECT_EQ(SymbolOf(atlas, 1, 1), (Symbol{0, 1}));
}

TEST(Rules, TouchNothingButSymbolOrColour)
{
    k_StyleAtlas atlas;
    AddRows(atlas, 3);
    k_LineDef& style = *atlas.GetRowStyle(2, 2);
    style.UseSymbolColor = true;
    style.SymbolSize = 17;
    style.LineStyle = PS_DOT;
    style.LineWidth = 4;
    style.Reserved = 0x1234;
    atlas.ApplyDefaultStyles();
    atlas.SetFileColors(0, 32);
    atlas.SetFileSymbols(0, 32);
    EXPECT_TRUE(style.UseSymbolColor);
    EXPECT_EQ(std::tuple(style.SymbolSize, style.LineStyle, style.LineWidth, style.Reserved),
              std::tuple(17, PS_DOT, 4, 0x1234));
}

TEST(DefaultStyles, FollowTheHostsName)
{
    for (const auto& [host, isOther] :
         {std::pair(_T("tANDRELL"), true), {_T("Quorvia"), false}, {_T("Tandrell "), false}}) {
        g_ApplicationName = host;
        k_StyleAtlas atlas;
        AddRows(atlas, 2);
        atlas.ApplyDefaultStyles();
        EXPECT_EQ(SymbolOf(atlas, 1, 0), (isOther ? Symbol{0, 0} : Symbol{2, 2}));
        EXPECT_EQ(ColorOf(atlas, 0, 1), isOther ? 0 : brown);
    }
    g_ApplicationName.Empty();
}

TEST(Palette, TheRulesTakeBlackWhereThePopupShowsWhite)
{
    EXPECT_EQ(k_Palette[39].Color, 0xFFFFFFU);
    EXPECT_EQ(GetRuleColor(39), 0U);
    for (int i = 0; i < 39; ++i)
        EXPECT_EQ(GetRuleColor(i), k_Palette[i].Color);
    // A few entries by their stored values, so that no byte order slips in.
    EXPECT_EQ(k_Palette[9].Color, 0x2068FFU);
    EXPECT_EQ(k_Palette[20].Color, 0xD4FF7FU);
    EXPECT_EQ(k_Palette[33].Color, 0x8CB4D2U);
}

} // namespace
