// The outline that is built from the unit library's flat list.
#include "support/ScriptedModel.h"

#include <gtest/gtest.h>
#include <ostream>

namespace
{

struct Row {
    int Quantity;
    int SubQuantity;
    int Index;
    int Device;
    DWORD Flags;
    int Level;

    friend bool operator==(const Row&, const Row&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Row& row)
    {
        return out << '(' << row.Quantity << ' ' << row.SubQuantity << ' ' << row.Index << ' ' << row.Device
                   << ' ' << row.Flags << " level " << row.Level << ')';
    }
};

std::vector<Row> Outline(std::vector<test::UnitEntry> entries)
{
    test::SetUnits(std::move(entries));
    k_StyleAtlas atlas;
    atlas.ColumnCount = 1;
    atlas.BuildCatalogue();
    const INT_PTR built = atlas.BuildCatalogue(); // starts anew
    EXPECT_EQ(built, atlas.Rows.GetSize());
    std::vector<Row> rows;
    for (INT_PTR i = 0; i < atlas.Rows.GetSize(); ++i) {
        const k_QuantityDesc& row = *atlas.GetRow(i);
        rows.push_back({row.Quantity, row.SubQuantity, row.Index, row.Device, row.Flags, row.Level});
    }
    return rows;
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
              (std::vector<Row>{{10, 0, 0, 0, 0, 0},
                                {20, 65535, 0, 0, 0, 0},
                                {20, 1, 0, 0, 0, 1},
                                {20, 2, 0, 0, 0, 1},
                                {20, 2, 1, 0, 0, 2},
                                {20, 2, 2, 0, 0, 2},
                                {20, 1, 0, 1, 0, 0},
                                {30, 65535, 0, 0, 0, 0},
                                {30, 5, 0, 0, 0, 1},
                                {30, 5, 1, 0, 0, 1}}));
}

TEST(Catalogue, SingleEntriesKeepTheirWholeKey)
{
    EXPECT_EQ(Outline({}), std::vector<Row>{});
    EXPECT_EQ(Outline({{3, 10, 4, 5, 6}}), (std::vector<Row>{{10, 4, 5, 3, 6, 0}}));
    EXPECT_EQ(Outline({{1, 10, 4, 0, 0}, {2, 10, 4, 0, 0}}),
              (std::vector<Row>{{10, 4, 0, 1, 0, 0}, {10, 4, 0, 2, 0, 0}}));
}

TEST(Catalogue, AGroupWithOneSubQuantityHasNoHead)
{
    EXPECT_EQ(Outline({{0, 10, 4, 0, 9}, {0, 10, 4, 0, 9}}), // two equal entries stay two rows
              (std::vector<Row>{{10, 65535, 0, 0, 0, 0}, {10, 4, 0, 0, 9, 1}, {10, 4, 0, 0, 9, 1}}));
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
              (std::vector<Row>{{10, 65535, 0, 0, 0, 0},
                                {10, 1, 0, 0, 5, 1},
                                {10, 1, 3, 0, 5, 2},
                                {10, 1, 0, 0, 7, 1},
                                {10, 1, 3, 0, 5, 2},
                                {10, 2, 0, 0, 0, 1}}));
}

TEST(Catalogue, OfSubQuantityAndIndexOnlyTheLowByteCounts)
{
    EXPECT_EQ(Outline({{0, 10, 257, 0x1FF, 0}}), (std::vector<Row>{{10, 1, 255, 0, 0, 0}}));
    EXPECT_EQ(Outline({{0, 10, -1, 0, 0}}), (std::vector<Row>{{10, 255, 0, 0, 0, 0}}));
    EXPECT_EQ(Outline({{0, 10, 1, 0, 0}, {0, 10, 257, 0, 0}}).size(), 3U); // one group, one sub-quantity
}

TEST(Catalogue, GroupsStandInOrderOfFirstAppearance)
{
    EXPECT_EQ(Outline({{0, 20, 1, 0, 0}, {0, 10, 0, 0, 0}, {1, 20, 1, 0, 0}, {0, 20, 2, 0, 0}}),
              (std::vector<Row>{{20, 65535, 0, 0, 0, 0},
                                {20, 1, 0, 0, 0, 1},
                                {20, 2, 0, 0, 0, 1},
                                {10, 0, 0, 0, 0, 0},
                                {20, 1, 0, 1, 0, 0}}));
}

TEST(Catalogue, AnEntryWithoutDeviceGathersItsQuantityFromAllDevices)
{
    EXPECT_EQ(Outline({{1, 10, 1, 0, 0}, {65535, 10, 1, 0, 0}, {2, 10, 2, 0, 0}}),
              (std::vector<Row>{
                  {10, 1, 0, 1, 0, 0}, {10, 65535, 0, -1, 0, 0}, {10, 1, 0, -1, 0, 1}, {10, 2, 0, 2, 0, 1}}));
}

TEST(TakeMatching, MovesTheRecordsInTheirOrder)
{
    k_QuantityPool pool;
    for (const QuantityKey& key :
         {QuantityKey{1, 1, 0, 1, 0}, QuantityKey{2, 1, 0, 1, 0}, QuantityKey{1, 2, 0, 1, 0},
          QuantityKey{1, 1, 1, 2, 0}, QuantityKey{1, 1, 2, 1, 0}})
        pool.AddRecord(key);
    EXPECT_EQ(k_StyleAtlas::TakeMatching(pool, 3, k_Any, k_Any), nullptr);
    EXPECT_EQ(pool.GetSize(), 5);
    const auto taken = k_StyleAtlas::TakeMatching(pool, 1, 1, 1);
    ASSERT_EQ(taken->GetSize(), 2);
    EXPECT_EQ(taken->GetAt(0)->Index, 0);
    EXPECT_EQ(taken->GetAt(1)->Index, 2);
    ASSERT_EQ(pool.GetSize(), 3);
    EXPECT_EQ(pool.GetAt(0)->Quantity, 2);
    EXPECT_EQ(pool.GetAt(2)->Device, 2);
    EXPECT_EQ(k_StyleAtlas::TakeMatching(pool, 1, k_Any, k_Any)->GetSize(), 2);
}

} // namespace
