// Records, rows and lists: values as constructed, deep copies, who deletes what, and the edges of the file
// columns.
#include <model/QuantityDesc.h>

#include <gtest/gtest.h>
#include <memory>

namespace
{

void Fill(k_LineDef& style, int seed)
{
    style.Reserved = static_cast<WORD>(0x1200 + seed);
    style.LineColor = 0x00010203U + static_cast<DWORD>(seed);
    style.SymbolColor = 0x00FFEE00U + static_cast<DWORD>(seed);
    style.SymbolShape = static_cast<short>(seed + 1);
    style.SymbolSize = static_cast<short>(seed + 30);
    style.SymbolFill = static_cast<short>(seed + 2);
    style.LineStyle = static_cast<short>(seed + 3);
    style.LineWidth = static_cast<short>(-seed);
    style.UseSymbolColor = seed % 2 == 1;
}

void ExpectEqual(const k_LineDef& first, const k_LineDef& second)
{
    EXPECT_EQ(first.Reserved, second.Reserved);
    EXPECT_EQ(first.LineColor, second.LineColor);
    EXPECT_EQ(first.SymbolColor, second.SymbolColor);
    EXPECT_EQ(first.SymbolShape, second.SymbolShape);
    EXPECT_EQ(first.SymbolSize, second.SymbolSize);
    EXPECT_EQ(first.SymbolFill, second.SymbolFill);
    EXPECT_EQ(first.LineStyle, second.LineStyle);
    EXPECT_EQ(first.LineWidth, second.LineWidth);
    EXPECT_EQ(first.UseSymbolColor, second.UseSymbolColor);
}

// A record that counts how many of its kind are alive.
struct CountedStyle : k_LineDef {
    CountedStyle() { ++Alive; }
    ~CountedStyle() override { --Alive; }
    static inline int Alive = 0;
};

void AddRecords(k_QuantityDesc& row, int count)
{
    for (int i = 0; i < count; ++i) {
        row.Styles.Add(new k_LineDef);
        Fill(*row.Styles.GetAt(i), i);
    }
}

TEST(Record, DrawsASolidBlackLineAndNoSymbolAsConstructed)
{
    const k_LineDef style;
    EXPECT_EQ(style.Reserved, 0);
    EXPECT_EQ(style.LineColor, 0U);
    EXPECT_EQ(style.SymbolColor, 0U);
    EXPECT_EQ(style.SymbolShape, 0);
    EXPECT_EQ(style.SymbolSize, 10);
    EXPECT_EQ(style.SymbolFill, 1);
    EXPECT_EQ(style.LineStyle, PS_SOLID);
    EXPECT_EQ(style.LineWidth, 1);
    EXPECT_FALSE(style.UseSymbolColor);
}

TEST(Record, AssignmentCopiesAllNineFields)
{
    k_LineDef source;
    Fill(source, 5);
    k_LineDef copy;
    copy = source;
    ExpectEqual(copy, source);
}

TEST(Row, TakesTheKeyApartAndPutsItTogetherAgain)
{
    const QuantityKey key{40000, 65535, 200, -1, 0xFFFFFFFE};
    const k_QuantityDesc row(key);
    QuantityKey back;
    EXPECT_TRUE(row.GetKey(back));
    EXPECT_EQ(back, key);
    EXPECT_EQ(row.ColumnCount, 32);

    QuantityKey none;
    k_QuantityDesc().GetKey(none);
    EXPECT_EQ(none, (QuantityKey{0, 0, 0, -1, 0}));
}

TEST(Row, AnswersForAtMost32FileColumns)
{
    k_QuantityDesc row;
    AddRecords(row, 40);
    EXPECT_EQ(row.GetColumnStyle(31), row.Styles.GetAt(31));
    EXPECT_EQ(row.GetColumnStyle(32), nullptr);
    EXPECT_THROW(row.GetColumnStyle(-1), CInvalidArgException*);

    k_QuantityDesc shortRow;
    AddRecords(shortRow, 10);
    EXPECT_NE(shortRow.GetColumnStyle(9), nullptr);
    EXPECT_EQ(shortRow.GetColumnStyle(10), nullptr);
}

TEST(Row, RefusesAColumnFrom32UpwardAndLeavesTheRecordToTheCaller)
{
    k_QuantityDesc row;
    const auto style = std::make_unique<CountedStyle>();
    EXPECT_FALSE(row.SetColumnStyle(32, style.get()));
    EXPECT_EQ(row.Styles.GetSize(), 0);
    EXPECT_THROW(row.SetColumnStyle(-1, style.get()), CInvalidArgException*);
    EXPECT_EQ(CountedStyle::Alive, 1);
}

TEST(Row, GivesAFreshRecordForAnEmptyPlaceAndDoesNotKeepIt)
{
    k_QuantityDesc row;
    ASSERT_TRUE(row.SetColumnStyle(2, new k_LineDef)); // 0 and 1 stay empty
    k_LineDef* const pStyle = row.GetColumnStyle(0);
    ASSERT_NE(pStyle, nullptr);
    Fill(*pStyle, 3);
    ExpectEqual(*row.GetColumnStyle(0), k_LineDef());
    EXPECT_EQ(row.Styles.GetAt(0), nullptr);
}

TEST(Row, ACopySharesNothingWithItsSource)
{
    k_QuantityDesc source(QuantityKey{7, 1, 2, 3, 4});
    source.Level = 2;
    source.ReservedFlag = true;
    source.ColumnCount = 9;
    source.Styles.SameLineColor = false;
    AddRecords(source, 3);
    const k_QuantityDesc copy(source);
    EXPECT_EQ(copy.Level, 2);
    EXPECT_TRUE(copy.ReservedFlag);
    EXPECT_EQ(copy.ColumnCount, 9);
    EXPECT_FALSE(copy.Styles.SameLineColor);
    EXPECT_TRUE(copy.Styles.SameLineStyle);
    ASSERT_EQ(copy.Styles.GetSize(), 3);
    for (INT_PTR i = 0; i < 3; ++i) {
        EXPECT_NE(copy.Styles.GetAt(i), source.Styles.GetAt(i));
        ExpectEqual(*copy.Styles.GetAt(i), *source.Styles.GetAt(i));
    }
}

TEST(List, DeletesItsRecordsWhenClearedOrDestroyedAndNotWhenEmptiedAsASelection)
{
    {
        k_LineDefList owner;
        owner.Add(new CountedStyle);
        owner.Add(nullptr);
        owner.Add(new CountedStyle);
        owner.SameSymbolFill = false;

        k_LineDefList selection;
        EXPECT_TRUE(selection.Append(&owner));
        EXPECT_FALSE(selection.Append(nullptr));
        EXPECT_EQ(selection.GetSize(), 3);
        EXPECT_EQ(selection.GetAt(2), owner.GetAt(2));
        selection.SetSize(0, -1);
        EXPECT_EQ(CountedStyle::Alive, 2);

        EXPECT_TRUE(owner.Clear());
        EXPECT_EQ(CountedStyle::Alive, 0);
        EXPECT_TRUE(owner.SameSymbolFill);
        owner.Add(new CountedStyle);
    }
    EXPECT_EQ(CountedStyle::Alive, 0);
}

TEST(List, AssignReplacesWhatWasThere)
{
    k_LineDefList source;
    source.Add(new k_LineDef);
    source.Add(nullptr);
    Fill(*source.GetAt(0), 4);
    source.SameLineWidth = false;
    k_LineDefList target;
    target.Add(new CountedStyle);
    target.SameLineStyle = false;
    target.Assign(source);
    EXPECT_EQ(CountedStyle::Alive, 0);
    EXPECT_TRUE(target.SameLineStyle);
    EXPECT_FALSE(target.SameLineWidth);
    ASSERT_EQ(target.GetSize(), 2);
    ExpectEqual(*target.GetAt(0), *source.GetAt(0));
    ExpectEqual(*target.GetAt(1), k_LineDef());
    target.Assign(target);
    EXPECT_EQ(target.GetSize(), 2);
}

} // namespace
