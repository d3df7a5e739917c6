// The outline that is built from the unit library's flat list.
#include "support/ScriptedModel.h"

#include <gtest/gtest.h>
#include <sstream>

namespace
{

// Quantity, sub-quantity, index, device and flags of each row, behind a plus for each level.
std::string Outline(std::vector<test::UnitEntry> entries)
{
    test::SetUnits(std::move(entries));
    k_StyleAtlas atlas;
    atlas.ColumnCount = 1;
    atlas.BuildCatalogue();
    EXPECT_EQ(atlas.BuildCatalogue(), atlas.Rows.GetSize()); // starts anew
    std::ostringstream text;
    for (INT_PTR i = 0; i < atlas.Rows.GetSize(); ++i) {
        const k_QuantityDesc& row = *atlas.GetRow(i);
        text << (i > 0 ? " " : "") << std::string(row.Level, '+') << row.Quantity << '.' << row.SubQuantity
             << '.' << int{row.Index} << '.' << row.Device << '.' << row.Flags;
    }
    return text.str();
}

TEST(Catalogue, BuildsThreeLevels)
{
    EXPECT_EQ(Outline({{0, 10, 0, 0, 0},
                       {0, 20, 1, 0, 0},
                       {0, 20, 2, 0, 0},
                       {0, 20, 2, 1, 0},
                       {0, 20, 2, 2, 0},
                       {1, 20, 1, 0, 0},
                       {0, 30, 5, 0, 0},
                       {0, 30, 5, 1, 0}}),
              "10.0.0.0.0 20.65535.0.0.0 +20.1.0.0.0 +20.2.0.0.0 ++20.2.1.0.0 ++20.2.2.0.0 20.1.0.1.0 "
              "30.65535.0.0.0 +30.5.0.0.0 +30.5.1.0.0");
}

TEST(Catalogue, SingleEntriesKeepTheirWholeKey)
{
    EXPECT_EQ(Outline({}), "");
    EXPECT_EQ(Outline({{3, 10, 4, 5, 6}}), "10.4.5.3.6");
    EXPECT_EQ(Outline({{1, 10, 4, 0, 0}, {2, 10, 4, 0, 0}}), "10.4.0.1.0 10.4.0.2.0");
}

TEST(Catalogue, AGroupWithOneSubQuantityHasNoHead)
{
    EXPECT_EQ(Outline({{0, 10, 4, 0, 9}, {0, 10, 4, 0, 9}}), // two equal entries stay two rows
              "10.65535.0.0.0 +10.4.0.0.9 +10.4.0.0.9");
}

TEST(Catalogue, AHeadStandsForTheEntriesThatEqualIt)
{
    // The head takes index 0 and the flags of the first entry; what equals it disappears, what doesn't stays.
    EXPECT_EQ(Outline({{0, 10, 1, 3, 5},
                       {0, 10, 2, 0, 0},
                       {0, 10, 1, 0, 5},
                       {0, 10, 1, 0, 7},
                       {0, 10, 1, 3, 5},
                       {0, 10, 1, 0, 5}}),
              "10.65535.0.0.0 +10.1.0.0.5 ++10.1.3.0.5 +10.1.0.0.7 ++10.1.3.0.5 +10.2.0.0.0");
}

TEST(Catalogue, OfSubQuantityAndIndexOnlyTheLowByteCounts)
{
    EXPECT_EQ(Outline({{0, 10, 257, 0x1FF, 0}}), "10.1.255.0.0");
    EXPECT_EQ(Outline({{0, 10, -1, 0, 0}}), "10.255.0.0.0");
    EXPECT_EQ(Outline({{0, 10, 1, 0, 0}, {0, 10, 257, 0, 0}}), "10.65535.0.0.0 +10.1.0.0.0 +10.1.0.0.0");
}

TEST(Catalogue, GroupsStandInOrderOfFirstAppearance)
{
    EXPECT_EQ(Outline({{0, 20, 1, 0, 0}, {0, 10, 0, 0, 0}, {1, 20, 1, 0, 0}, {0, 20, 2, 0, 0}}),
              "20.65535.0.0.0 +20.1.0.0.0 +20.2.0.0.0 10.0.0.0.0 20.1.0.1.0");
}

TEST(Catalogue, AnEntryWithoutDeviceGathersItsQuantityFromAllDevices)
{
    EXPECT_EQ(Outline({{1, 10, 1, 0, 0}, {65535, 10, 1, 0, 0}, {2, 10, 2, 0, 0}}),
              "10.1.0.1.0 10.65535.0.-1.0 +10.1.0.-1.0 +10.2.0.2.0");
    // It leaves the devices that came before it their later entries, and takes none of another quantity.
    EXPECT_EQ(Outline({{1, 10, 1, 0, 0},
                       {65535, 10, 1, 0, 0},
                       {2, 11, 1, 0, 0},
                       {2, 10, 2, 0, 0},
                       {1, 10, 1, 1, 0},
                       {65535, 10, 2, 1, 0},
                       {2, 10, 1, 2, 0}}),
              "10.65535.0.1.0 +10.1.0.1.0 +10.1.1.1.0 10.65535.0.-1.0 +10.1.0.-1.0 ++10.1.2.2.0 "
              "+10.2.0.2.0 ++10.2.1.-1.0 11.1.0.2.0");
}

} // namespace
