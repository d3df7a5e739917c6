// The table: which row answers for a quantity, labels, deep copies, and odd numbers of file columns.
#include "support/ScriptedModel.h"

#include <model/RowFit.h>

#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

namespace
{

// The catalogue of devices.po, which is read once, at the first text of the program.
const bool isLanguageSet = setenv("GLOSSA_LOCALEDIR", TEST_LOCALE, 1) == 0 &&
                           setenv("LC_ALL", "de", 1) == 0 && setenv("LANGUAGE", "de", 1) == 0;

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
    std::pair<int, INT_PTR> best{0, -1};
    for (INT_PTR i = 0; i < atlas.Rows.GetSize(); ++i) {
        QuantityKey row;
        if (atlas.GetRow(i) != nullptr && atlas.GetRow(i)->GetKey(row) && FitOf(row, key) > best.first)
            best = {FitOf(row, key), i};
    }
    return best.second;
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
            const INT_PTR found = atlas.FindRow(key);
            ASSERT_EQ(found, BestRow(atlas, key)) << "round " << round;
            QuantityKey row;
            ASSERT_TRUE(found < 0 ||
                        (atlas.GetRow(found)->GetKey(row) && FitOfRow(row, key) == FitOf(row, key)));
        }
    }
}

TEST(Table, AssignMakesADeepCopyWithEmptySlots)
{
    const auto about = [](k_StyleAtlas& atlas) {
        return std::tie(atlas.Version, atlas.ColumnCount, atlas.RegistryPath, atlas.FilePath);
    };
    k_StyleAtlas source;
    about(source) = std::tuple(7, 3, _T("key"), _T("file"));
    for (WORD quantity = 1; quantity <= 3; ++quantity)
        source.AddRow({quantity, 0, 0, 0, 0}, static_cast<BYTE>(quantity));
    PutNull(source, 1);
    k_QuantityDesc& row = *source.GetRow(2);
    row.ReservedFlag = true;
    row.ColumnCount = 9;
    row.Styles.SameLineColor = false;

    k_StyleAtlas copy;
    for (int i = 0; i < 4; ++i)
        copy.AddRow({99, 0, 0, 0, 0}, 0);
    EXPECT_EQ(&copy.Assign(source), &copy);
    ASSERT_EQ(copy.Rows.GetSize(), 3);
    EXPECT_EQ(copy.GetRow(1), nullptr);
    const k_QuantityDesc& copied = *copy.GetRow(2);
    EXPECT_EQ(std::tuple(copied.Level, copied.ReservedFlag, copied.ColumnCount), std::tuple(3, true, 9));
    EXPECT_TRUE(copied.Styles.SameLineStyle && !copied.Styles.SameLineColor);
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
    EXPECT_TRUE(about(taker) == about(source));

    copy.Assign(taker);
    copy.Clear(); // keeps the rest
    EXPECT_EQ(copy.Rows.GetSize(), 0);
    EXPECT_TRUE(about(copy) == about(source));
    copy.Assign({});
    EXPECT_TRUE(copy.ColumnCount == 32 && copy.FilePath.IsEmpty());
}

TEST(Table, HasTheRowsThatWereAddedAndAtMost32FileColumns)
{
    for (const auto& [columnCount, records] :
         {std::pair{0U, 0}, {1U, 1}, {32U, 32}, {33U, 32}, {0xFFFFFFFFU, 32}}) {
        k_StyleAtlas atlas;
        atlas.ColumnCount = columnCount;
        EXPECT_EQ(atlas.AddRow({}, 0), 0);
        EXPECT_EQ(atlas.AddRow({}, 0), 1);
        EXPECT_EQ(atlas.GetRow(0)->Styles.GetSize(), records);
        EXPECT_EQ(atlas.GetRowStyle(0, records), nullptr);
        PutNull(atlas, 1);
        for (const INT_PTR outside : {-1, 1, 2})
            EXPECT_TRUE(atlas.GetRow(outside) == nullptr &&
                        (outside < 0 || atlas.GetRowStyle(outside, 0) == nullptr));
        EXPECT_THROW(atlas.GetRowStyle(-1, 0), CInvalidArgException*);
    }
}

TEST(Labels, NameTheDeviceWhereTheLanguageHasANameForIt)
{
    ASSERT_TRUE(isLanguageSet);
    // Device, level, label, label in the outline, tooltip.
    const std::tuple<short, BYTE, LPCTSTR, LPCTSTR, LPCTSTR> cases[] = {
        {1, 0, _T("7.65535.9.1.5.0 - Bench"), _T("7.65535.9.1.5.0 - Bench"), _T("Bench")},
        {1, 1, _T("7.65535.9.1.5.0 - Bench"), _T("7.65535.9.1.5.0"), _T("Bench")},
        {2, 0, _T("7.65535.9.2.5.0"), _T("7.65535.9.2.5.0"), _T("")},
        {3, 0, _T("7.65535.9.3.5.0"), _T("7.65535.9.3.5.0"), _T("")},
        {0, 0, _T("7.65535.9.0.5.0"), _T("7.65535.9.0.5.0"), _T("")},
        {-1, 0, _T("7.65535.9.-1.5.0"), _T("7.65535.9.-1.5.0 - Nowhere"), _T("")},
        {-1, 2, _T("7.65535.9.-1.5.0"), _T("7.65535.9.-1.5.0"), _T("")}};
    k_StyleAtlas atlas;
    for (const auto& [device, level, label, rowLabel, tooltip] : cases) {
        const INT_PTR row = atlas.AddRow({7, 65535, 5, device, 9}, level);
        EXPECT_EQ(atlas.GetRow(row)->GetLabel(), label);
        EXPECT_EQ(atlas.GetRowLabel(row), rowLabel);
        EXPECT_EQ(atlas.GetRow(row)->GetTooltipLabel(), tooltip);
    }
    EXPECT_EQ(atlas.GetRowLabel(atlas.Rows.Add(nullptr)), _T("?"));
    EXPECT_EQ(atlas.GetRowLabel(atlas.Rows.GetSize()), _T(""));
    EXPECT_THROW(atlas.GetRowLabel(-1), CInvalidArgException*);
}

} // namespace
