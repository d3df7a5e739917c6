// Records, rows and lists: values as constructed, deep copies, who deletes what, and the edges of the file
// columns.
#include <model/QuantityDesc.h>
#include <model/RecordMemory.h>

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

namespace
{

// A record that counts how many of its kind are alive.
struct CountedStyle : k_LineDef {
    CountedStyle() { ++Alive; }
    ~CountedStyle() override { --Alive; }
    static inline int Alive = 0;
};

k_LineDef* NewStyle(int seed)
{
    auto* const style = new k_LineDef;
    style->Reserved = static_cast<WORD>(0x1200 + seed);
    style->LineColor = 0x00010203U + static_cast<DWORD>(seed);
    style->SymbolColor = 0x00FFEE00U + static_cast<DWORD>(seed);
    style->SymbolShape = static_cast<short>(seed + 1);
    style->SymbolSize = static_cast<short>(seed + 30);
    style->SymbolFill = static_cast<short>(seed + 2);
    style->LineStyle = static_cast<short>(seed + 3);
    style->LineWidth = static_cast<short>(-seed);
    style->UseSymbolColor = seed % 2 == 1;
    return style;
}

auto Fields(const k_LineDef& style)
{
    return std::tuple(style.Reserved, style.LineColor, style.SymbolColor, style.SymbolShape, style.SymbolSize,
                      style.SymbolFill, style.LineStyle, style.LineWidth, style.UseSymbolColor);
}

const auto asConstructed = std::tuple(0, 0U, 0U, 0, 10, 1, PS_SOLID, 1, false);

TEST(Record, DrawsASolidBlackLineAndNoSymbolAsConstructed)
{
    EXPECT_TRUE(Fields(k_LineDef()) == asConstructed);
}

// Some blocks full, in an order of coming and going that leaves gaps in each.
TEST(Record, HasItsPlaceToItself)
{
    static RecordMemory memory; // it keeps a block
    std::vector<unsigned char*> places;
    const auto take = [&places](int count) {
        for (int i = 0; i < count; ++i)
            places.push_back(static_cast<unsigned char*>(memory.Take()));
    };
    const auto giveBackEach = [&places](std::size_t step) {
        for (std::size_t i = 0; i < places.size(); i += step)
            memory.Return(std::exchange(places[i], nullptr));
        std::erase(places, nullptr);
    };
    take(5000);
    giveBackEach(3);
    take(3000);
    for (std::size_t i = 0; i < places.size(); ++i)
        std::memset(places[i], static_cast<int>(i % 251), RecordMemory::placeSize);
    for (std::size_t i = 0; i < places.size(); ++i)
        ASSERT_EQ(std::count(places[i], places[i] + RecordMemory::placeSize, i % 251),
                  RecordMemory::placeSize);
    giveBackEach(1);
    const void* const first = memory.Take();
    take(5000);
    EXPECT_EQ(std::set<const void*>(places.begin(), places.end()).size(), 5000U);
    EXPECT_EQ(std::count(places.begin(), places.end(), first), 0);
    giveBackEach(2);
    std::ranges::reverse(places);
    giveBackEach(1);
}

TEST(Row, TakesTheKeyApartAndPutsItTogetherAgain)
{
    const QuantityKey key{40000, 65535, 200, -1, 0xFFFFFFFE};
    QuantityKey back;
    EXPECT_TRUE(k_QuantityDesc(key).GetKey(back));
    EXPECT_EQ(back, key);
    k_QuantityDesc().GetKey(back);
    EXPECT_EQ(back, (QuantityKey{0, 0, 0, -1, 0}));
}

TEST(Row, AnswersForAtMost32FileColumns)
{
    k_QuantityDesc row;
    for (int i = 0; i < 10; ++i)
        row.Styles.Add(new k_LineDef);
    EXPECT_NE(row.GetColumnStyle(9), nullptr);
    EXPECT_EQ(row.GetColumnStyle(10), nullptr);
    for (int i = 10; i < 40; ++i)
        row.Styles.Add(new k_LineDef);
    EXPECT_EQ(row.GetColumnStyle(31), row.Styles.GetAt(31));
    EXPECT_EQ(row.GetColumnStyle(32), nullptr);
    EXPECT_THROW(row.GetColumnStyle(-1), CInvalidArgException*);

    const auto style = std::make_unique<CountedStyle>(); // stays the caller's
    EXPECT_FALSE(row.SetColumnStyle(32, style.get()));
    EXPECT_THROW(row.SetColumnStyle(-1, style.get()), CInvalidArgException*);
    EXPECT_EQ(CountedStyle::Alive, 1);
}

TEST(Row, GivesAFreshRecordForAnEmptyPlaceAndDoesNotKeepIt)
{
    k_QuantityDesc row;
    ASSERT_TRUE(row.SetColumnStyle(2, new k_LineDef)); // 0 and 1 stay empty
    row.GetColumnStyle(0)->LineWidth = 3;
    EXPECT_TRUE(Fields(*row.GetColumnStyle(0)) == asConstructed);
    EXPECT_EQ(row.Styles.GetAt(0), nullptr);
}

TEST(Row, ACopySharesNothingWithItsSource)
{
    k_QuantityDesc source(QuantityKey{7, 1, 2, 3, 4});
    source.Level = 2;
    source.ReservedFlag = true;
    source.ColumnCount = 9;
    source.Styles.SameLineColor = false;
    for (int i = 0; i < 3; ++i)
        source.Styles.Add(NewStyle(i));
    const k_QuantityDesc copy(source);
    EXPECT_EQ(std::tuple(copy.Level, copy.ReservedFlag, copy.ColumnCount), std::tuple(2, true, 9));
    EXPECT_FALSE(copy.Styles.SameLineColor);
    EXPECT_TRUE(copy.Styles.SameLineStyle);
    ASSERT_EQ(copy.Styles.GetSize(), 3);
    for (INT_PTR i = 0; i < 3; ++i) {
        EXPECT_NE(copy.Styles.GetAt(i), source.Styles.GetAt(i));
        EXPECT_TRUE(Fields(*copy.Styles.GetAt(i)) == Fields(*source.Styles.GetAt(i)));
    }
}

TEST(List, DeletesItsRecordsWhenClearedOrDestroyedAndNotWhenEmptiedAsASelection)
{
    {
        k_LineDefList owner;
        for (k_LineDef* const style : {static_cast<k_LineDef*>(new CountedStyle), {}, NewStyle(4)})
            owner.Add(style);
        k_LineDefList selection;
        EXPECT_TRUE(selection.Append(&owner));
        EXPECT_FALSE(selection.Append(nullptr));
        EXPECT_EQ(selection.GetAt(2), owner.GetAt(2));
        selection.SetSize(0, -1);
        EXPECT_EQ(CountedStyle::Alive, 1);

        owner.SameSymbolFill = false;
        k_LineDefList target;
        target.Add(new CountedStyle);
        target.SameLineStyle = false;
        target.Assign(owner); // takes the place of what was there
        EXPECT_EQ(CountedStyle::Alive, 1);
        EXPECT_TRUE(target.SameLineStyle);
        EXPECT_FALSE(target.SameSymbolFill);
        target.Assign(target);
        ASSERT_EQ(target.GetSize(), 3);
        EXPECT_TRUE(Fields(*target.GetAt(1)) == asConstructed);
        EXPECT_TRUE(Fields(*target.GetAt(2)) == Fields(*owner.GetAt(2)));

        EXPECT_TRUE(owner.Clear());
        EXPECT_EQ(CountedStyle::Alive, 0);
        EXPECT_TRUE(owner.SameSymbolFill);
        owner.Add(new CountedStyle);
    }
    EXPECT_EQ(CountedStyle::Alive, 0);
}

TEST(List, ComparesNeighboursAlone)
{
    k_LineDefList list;
    for (const int seed : {1, -1, 2}) // nothing is a neighbour of a null
        list.Add(seed < 0 ? nullptr : NewStyle(seed));
    list.UpdateUniformity();
    EXPECT_TRUE(list.SameLineStyle && list.SameSymbolColor);
    for (const int seed : {3, 3}) // the first differs from its neighbour; the second sets nothing right
        list.Add(NewStyle(seed));
    list.UpdateUniformity();
    EXPECT_FALSE(list.SameLineStyle || list.SameSymbolColor);
}

} // namespace
