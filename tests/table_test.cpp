// The table: which row answers for a quantity, deep copies, and rows with odd numbers of file columns.
#include "support/ScriptedModel.h"

#include <gtest/gtest.h>
#include <random>

namespace
{

int FitOf(const QuantityKey& row, const QuantityKey& key)
{
    return row.Quantity != key.Quantity         ? 0
           : row.SubQuantity != key.SubQuantity ? 1
           : row.Device != key.Device           ? 2
           : row != key                         ? 3
                                                : 4;
}

// What FindRow promises: of the rows that fit best the first.
INT_PTR BestRow(const k_StyleAtlas& atlas, const QuantityKey& key)
{
    INT_PTR best = -1;
    int bestFit = 0;
    for (INT_PTR i = 0; i < atlas.Rows.GetSize(); ++i) {
        QuantityKey row;
        if (atlas.GetRow(i) != nullptr && atlas.GetRow(i)->GetKey(row) && FitOf(row, key) > bestFit) {
            best = i;
            bestFit = FitOf(row, key);
        }
    }
    return best;
}

void PutNull(k_StyleAtlas& atlas, INT_PTR row)
{
    delete atlas.GetRow(row);
    atlas.Rows.SetAt(row, nullptr);
}

TEST(FindRow, KeepsItsPromiseOnAnyTable)
{
    std::mt19937 random(4711);
    const auto below = [&random](unsigned end) { return static_cast<WORD>(random() % end); };
    const auto anyKey = [&below] {
        return QuantityKey{below(3), below(3), static_cast<BYTE>(below(2)), static_cast<short>(below(2)),
                           below(2)};
    };
    for (int round = 0; round < 300; ++round) {
        k_StyleAtlas atlas;
        atlas.ColumnCount = 0;
        const int size = below(25); // or no row at all
        for (int i = 0; i < size; ++i)
            atlas.AddRow(anyKey(), 0); // with duplicates
        for (INT_PTR i = 0; i < atlas.Rows.GetSize(); ++i) {
            if (below(6) == 0)
                PutNull(atlas, i);
        }
        for (int i = 0; i < 30; ++i) {
            const QuantityKey key = anyKey();
            ASSERT_EQ(atlas.FindRow(key), BestRow(atlas, key)) << "round " << round;
        }
    }
}

TEST(Table, AssignMakesADeepCopyWithEmptySlots)
{
    k_StyleAtlas source;
    source.ColumnCount = 3;
    source.Version = 7;
    source.RegistryPath = _T("key");
    source.FilePath = _T("file");
    for (WORD quantity = 1; quantity <= 3; ++quantity)
        source.AddRow({quantity, 0, 0, 0, 0}, static_cast<BYTE>(quantity));
    PutNull(source, 1);

    k_StyleAtlas copy;
    copy.AddRow({99, 0, 0, 0, 0}, 0);
    EXPECT_EQ(&copy.Assign(source), &copy);
    ASSERT_EQ(copy.Rows.GetSize(), 3);
    EXPECT_EQ(copy.GetRow(1), nullptr);
    EXPECT_EQ(copy.GetRow(2)->Level, 3);
    EXPECT_EQ(copy.Version, 7U);
    EXPECT_EQ(copy.ColumnCount, 3U);
    EXPECT_EQ(copy.RegistryPath, _T("key"));
    EXPECT_EQ(copy.FilePath, _T("file"));
    copy.GetRowStyle(0, 2)->LineWidth = 9;
    EXPECT_EQ(source.GetRowStyle(0, 2)->LineWidth, 1);

    k_StyleAtlas taker;
    taker.AddRow({99, 0, 0, 0, 0}, 0);
    const k_QuantityDesc* const pTaken = copy.GetRow(2);
    EXPECT_EQ(&taker.Assign(std::move(copy)), &taker); // the rows themselves, where the other isn't needed
    EXPECT_EQ(copy.Rows.GetSize(), 0);                 // NOLINT(bugprone-use-after-move)
    ASSERT_EQ(taker.Rows.GetSize(), 3);
    EXPECT_EQ(taker.GetRow(2), pTaken);
    EXPECT_EQ(taker.GetRow(1), nullptr);
    EXPECT_EQ(taker.Version, 7U);
    EXPECT_EQ(taker.FilePath, _T("file"));

    copy.Assign(taker);
    copy.Clear(); // keeps the rest
    EXPECT_EQ(copy.Rows.GetSize(), 0);
    EXPECT_EQ(copy.ColumnCount, 3U);
    EXPECT_EQ(copy.FilePath, _T("file"));
    copy.Assign({});
    EXPECT_EQ(copy.ColumnCount, 32U);
    EXPECT_TRUE(copy.FilePath.IsEmpty());
}

TEST(Table, ARowGetsARecordForEachFileColumnButNeverMoreThan32)
{
    for (const auto& [columnCount, records] :
         {std::pair{0U, 0}, {1U, 1}, {32U, 32}, {33U, 32}, {0xFFFFFFFFU, 32}}) {
        k_StyleAtlas atlas;
        atlas.ColumnCount = columnCount;
        EXPECT_EQ(atlas.AddRow({}, 0), 0);
        EXPECT_EQ(atlas.AddRow({}, 0), 1);
        EXPECT_EQ(atlas.GetRow(0)->Styles.GetSize(), records);
        EXPECT_EQ(atlas.GetRowStyle(0, records), nullptr);
    }
}

TEST(Table, RowsAndColumnsOutsideTheTable)
{
    k_StyleAtlas atlas;
    atlas.AddRow({}, 0);
    atlas.AddRow({}, 0);
    PutNull(atlas, 1);
    EXPECT_EQ(atlas.GetRow(-1), nullptr);
    EXPECT_EQ(atlas.GetRow(2), nullptr);
    EXPECT_EQ(atlas.GetRowStyle(2, 0), nullptr);
    EXPECT_EQ(atlas.GetRowStyle(1, 0), nullptr);
    EXPECT_EQ(atlas.GetRowStyle(0, 32), nullptr);
    EXPECT_NE(atlas.GetRowStyle(0, 31), nullptr);
    EXPECT_THROW(atlas.GetRowStyle(-1, 0), CInvalidArgException*);
    EXPECT_THROW(atlas.GetRowStyle(0, -1), CInvalidArgException*);
}

} // namespace
