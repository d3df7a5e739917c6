// Records, rows and lists: initial values, deep copies, who deletes what, and the edges of the file columns.
#include <model/QuantityDesc.h>
#include <model/SlotPool.h>

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <set>

namespace
{

// A record that counts how many of its kind are alive.
struct CountedStyle : k_LineDef {
    CountedStyle() { ++Alive; }
    ~CountedStyle() override { --Alive; }
    static inline int Alive = 0;
};

auto Fields(k_LineDef& style)
{
    return std::tie(style.Reserved, style.LineColor, style.SymbolColor, style.SymbolShape, style.SymbolSize,
                    style.SymbolFill, style.LineStyle, style.LineWidth, style.UseSymbolColor);
}

k_LineDef* NewStyle(int seed)
{
    auto* const style = new k_LineDef;
    Fields(*style) = std::tuple(0x1200 + seed, 0x00010203 + seed, 0x00FFEE00 + seed, seed + 1, seed + 30,
                                seed + 2, seed + 3, -seed, seed % 2 == 1);
    return style;
}

// A solid black line and no symbol.
const auto asConstructed = std::tuple(0, 0U, 0U, 0, 10, 1, PS_SOLID, 1, false);

// Places come and go at random, up to some blocks full and down to none.
TEST(Record, HasItsPlaceToItself)
{
    constexpr std::size_t size = 32;
    static k_SlotPool<size> memory; // it keeps a block
    std::mt19937 random(4711);
    std::vector<std::pair<unsigned char*, int>> places; // and what fills each
    for (const std::size_t wanted : {5000, 0, 9000, 3000, 7000, 2100, 0, 4000, 0}) {
        while (places.size() != wanted) {
            const bool grows = (random() % 4 == 0) == (places.size() > wanted);
            if (grows || places.empty()) {
                auto* const place = static_cast<unsigned char*>(memory.Take());
                places.emplace_back(place, random() % 251);
                std::memset(place, places.back().second, size);
                continue;
            }
            std::swap(places[random() % places.size()], places.back());
            const auto [place, fill] = places.back();
            ASSERT_EQ(std::count(place, place + size, fill), size);
            memory.Return(place);
            places.pop_back();
        }
        std::set<std::uintptr_t> blocks; // as many as the largest number of places needs
        for (const auto& [place, fill] : places)
            blocks.insert(reinterpret_cast<std::uintptr_t>(place) >> 16);
        EXPECT_LE(blocks.size(), 5U);
    }
}

TEST(Row, AnswersForAtMost32FileColumns)
{
    k_QuantityDesc row;
    for (int i = 0; i < 10; ++i)
        row.Styles.Add(new k_LineDef);
    EXPECT_EQ(row.GetColumnStyle(9), row.Styles.GetAt(9));
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

    k_QuantityDesc sparse;
    ASSERT_TRUE(sparse.SetColumnStyle(2, new k_LineDef)); // 0 and 1 stay empty
    sparse.GetColumnStyle(0)->LineWidth = 3;
    EXPECT_TRUE(Fields(*sparse.GetColumnStyle(0)) == asConstructed) << "a fresh record, which isn't kept";
    EXPECT_EQ(sparse.Styles.GetAt(0), nullptr);
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
    *list.GetAt(2) = *list.GetAt(3);
    list.UpdateUniformity();
    EXPECT_TRUE(list.SameLineStyle && list.SameSymbolColor);
}

} // namespace
