// The bulk rules: distinct styles for a whole table.
#include "support/ScriptedModel.h"

#include <model/Host.h>
#include <model/Palette.h>

#include <gtest/gtest.h>
#include <sstream>

namespace
{

// Shape and fill of a record, then both colours, which every rule sets alike: "1/2 2aa5".
std::string StyleOf(const k_StyleAtlas& atlas, INT_PTR row, int column)
{
    const k_LineDef& style = *atlas.GetRowStyle(row, column);
    EXPECT_EQ(style.LineColor, style.SymbolColor);
    std::ostringstream text;
    text << style.SymbolShape << '/' << style.SymbolFill << ' ' << std::hex << style.LineColor;
    return text.str();
}

void ExpectStyles(const k_StyleAtlas& atlas,
                  std::initializer_list<std::tuple<INT_PTR, int, const char*>> expected)
{
    for (const auto& [row, column, style] : expected)
        EXPECT_EQ(StyleOf(atlas, row, column), style) << row << ',' << column;
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
    atlas.SetFileColors(2, 4); // the given columns alone
    atlas.SetFileSymbols(4, 4);
    atlas.SetFileSymbols(9, 3);
    atlas.SetFileColors(31, 0x7FFFFFFF); // no further than the table answers
    ExpectStyles(atlas, {{0, 1, "0/1 0"}, {0, 3, "0/1 5500"}, {0, 4, "0/1 0"}, {0, 31, "0/1 c0c0c0"}});
    atlas.SetFileSymbols(0, 32);
    atlas.SetFileColors(0, 32);
    ExpectStyles(atlas, {{0, 0, "0/0 0"},
                         {1, 1, "1/1 2aa5"},
                         {0, 2, "2/2 404000"},
                         {1, 3, "3/0 5500"},
                         {0, 9, "9/0 2068ff"},
                         {1, 10, "0/1 8b8b"},
                         {0, 30, "0/0 480048"},
                         {1, 31, "1/1 c0c0c0"}});
}

TEST(QuantityRules, CountRunsOfNeighbouringRows)
{
    k_StyleAtlas atlas;
    for (const auto& [quantity, device] : {std::pair<WORD, short>{5, 0}, {5, 1}, {6, 0}, {5, 0}, {5, 0}})
        atlas.AddRow({quantity, 0, 0, device, 0}, 0);
    delete atlas.GetRow(3); // an empty slot ends no run
    atlas.Rows.SetAt(3, nullptr);
    atlas.ColumnCount = 0xFFFFFFFF; // as a file can say; no column is made
    atlas.SetMainQuantityColors();
    atlas.ColumnCount = 31;
    atlas.SetMainQuantitySymbols();
    EXPECT_EQ(atlas.GetRow(4)->Styles.GetSize(), 32);
    ExpectStyles(
        atlas,
        {{0, 0, "1/1 0"}, {1, 30, "1/1 0"}, {2, 0, "2/2 2aa5"}, {4, 0, "3/0 404000"}, {4, 31, "0/1 404000"}});
}

TEST(QuantityRules, GoRoundThePaletteWithoutTwoBlackNeighbours)
{
    k_StyleAtlas atlas;
    atlas.ColumnCount = 1;
    AddRows(atlas, 41);
    atlas.SetMainQuantityColors();
    atlas.SetMainQuantitySymbols();
    ExpectStyles(atlas, {{9, 0, "0/1 2068ff"}, {38, 0, "9/0 fae6e6"}, {39, 0, "0/1 0"}, {40, 0, "1/2 2aa5"}});
    EXPECT_EQ(k_Palette[39].Color, 0xFFFFFFU) << "black in the rules alone";
}

TEST(DefaultStyles, FollowTheHostsNameAndTouchNothingButSymbolsAndColours)
{
    for (const auto& [host, style] : {std::pair(_T("tANDRELL"), "1/1 2aa5"),
                                      {_T("Quorvia"), "2/2 2aa5"},
                                      {_T("Tandrell "), "2/2 2aa5"}}) {
        g_ApplicationName = host;
        k_StyleAtlas atlas;
        AddRows(atlas, 2);
        k_LineDef& line = *atlas.GetRowStyle(1, 1);
        auto others =
            std::tie(line.UseSymbolColor, line.SymbolSize, line.LineStyle, line.LineWidth, line.Reserved);
        others = std::tuple(true, 17, PS_DOT, 4, 0x1234);
        atlas.ApplyDefaultStyles();
        EXPECT_TRUE(others == std::tuple(true, 17, PS_DOT, 4, 0x1234));
        ExpectStyles(atlas, {{1, 1, style}});
    }
    g_ApplicationName.Empty();
}

} // namespace
