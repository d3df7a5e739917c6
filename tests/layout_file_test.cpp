// The layout file: every byte of it, how it is laid over the catalogue, and what damaged ones do.
#include "support/LayoutBytes.h"
#include "support/MessageRecorder.h"
#include "support/ScriptedModel.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

namespace
{

using namespace test;

// The 50 bytes of a file with one row and one record, all as constructed.
std::string MinimalFile()
{
    constexpr unsigned char bytes[] = {
        0x01, 0x00, 0x00, 0x00, 0x20, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0xFF,
        0xFF, 0x05, 0x00, 0xFF, 0xFF, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x0A, 0x00, 0x01, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00};
    return {reinterpret_cast<const char*>(bytes), sizeof bytes};
}

std::string WithBytes(std::string file, std::size_t offset, std::string_view bytes)
{
    return file.replace(offset, bytes.size(), bytes);
}

// A table of three quantities, with two records each and no two bytes of a record alike.
std::string RichFile()
{
    test::SetUnits(test::SingleQuantities(3));
    k_StyleAtlas atlas;
    atlas.ColumnCount = 2;
    atlas.BuildCatalogue();
    std::string file = BytesOf(atlas);
    for (std::size_t row = 12; row < file.size(); row += 17 + 2 * 21) {
        for (const std::size_t record : {row + 17, row + 17 + 21}) {
            for (std::size_t i = 0; i < 20; ++i)
                file[record + i] = static_cast<char>(record + i);
            file[record + 20] = record % 2 == 0; // UseSymbolColor
        }
    }
    return file;
}

TEST(LayoutFile, HasTheBytesOfTheFormat)
{
    k_StyleAtlas atlas;
    EXPECT_EQ(BytesOf(atlas).size(), 12U);
    const auto row = new k_QuantityDesc(QuantityKey{5, 65535, 0, -1, 0});
    row->SetColumnStyle(0, new k_LineDef);
    atlas.Rows.Add(row);
    EXPECT_EQ(BytesOf(atlas), MinimalFile());

    k_LineDef& style = *atlas.GetRowStyle(0, 0);
    style.LineColor = 0x11223344; // stands before the symbol's colour
    style.SymbolColor = 0x55667788;
    style.SymbolShape = -2;
    style.UseSymbolColor = true;
    row->Flags = 0xDEADBEEF;
    row->ReservedFlag = true;
    row->Level = 2;
    EXPECT_EQ(BytesOf(atlas).substr(0x17, 6), "\xEF\xBE\xAD\xDE\x01\x02");
    EXPECT_EQ(BytesOf(atlas).substr(0x1F, 10), "\x44\x33\x22\x11\x88\x77\x66\x55\xFE\xFF");
    EXPECT_EQ(BytesOf(atlas).back(), 1);
    k_LineDef same;
    ReadInto(same, BytesOf(style));
    EXPECT_EQ(BytesOf(same), BytesOf(atlas).substr(0x1D)) << "a record alone";
}

// The cause of the archive exception that the reader raises, 0 when it raises none.
int CauseOfRefusal(k_StyleAtlas& atlas, std::string_view bytes)
{
    try {
        ReadInto(atlas, bytes);
        return 0;
    } catch (CArchiveException* e) {
        const int cause = e->m_cause;
        e->Delete();
        return cause;
    }
}

TEST(LayoutFile, GivesTheSameBytesAgainOrEndsTooEarlyAndKeepsTheRowsBefore)
{
    const std::string file = RichFile();
    constexpr int header = 12;
    constexpr int rowSize = 17 + 2 * 21;
    EXPECT_EQ(file.size(), header + 3 * rowSize);
    k_StyleAtlas whole; // whatever the catalogue's number of file columns
    whole.BuildCatalogue();
    ReadInto(whole, file);
    EXPECT_EQ(whole.Rows.GetSize(), 3);
    EXPECT_EQ(BytesOf(whole), file);
    for (int length = 0; length < static_cast<int>(file.size()); ++length) {
        k_StyleAtlas atlas;
        ASSERT_EQ(CauseOfRefusal(atlas, file.substr(0, static_cast<std::size_t>(length))),
                  CArchiveException::endOfFile);
        ASSERT_EQ(atlas.Rows.GetSize(), std::max(length - header, 0) / rowSize) << length;
        ASSERT_EQ(atlas.ColumnCount, length < 8 ? 32U : 2U) << "nothing of a value that ends early";
    }
}

TEST(LayoutFile, KeepsOddValuesAndNormalisesOnlyTruth)
{
    std::string file = MinimalFile();
    const std::pair<std::size_t, std::string_view> changes[] = {
        {0x00, "\x02"}, {0x04, "\xFF\xFF\xFF"}, {0x1B, "\x80\x07"}, {0x1D, "\x34\x12"}, {0x31, "\x07"}};
    for (const auto& [offset, bytes] : changes) // Version, ColumnCount, ReservedFlag and Level, Reserved, ...
        file = WithBytes(file, offset, bytes);
    k_StyleAtlas atlas;
    ReadInto(atlas, file);
    EXPECT_EQ(atlas.Version, 2U);
    EXPECT_EQ(atlas.ColumnCount, 0x00FFFFFFU);
    EXPECT_TRUE(atlas.GetRow(0)->ReservedFlag);
    EXPECT_EQ(atlas.GetRow(0)->Level, 7);
    EXPECT_EQ(atlas.GetRow(0)->ColumnCount, 1);
    EXPECT_TRUE(atlas.GetRowStyle(0, 0)->UseSymbolColor);
    EXPECT_EQ(BytesOf(atlas), WithBytes(WithBytes(file, 0x1B, "\x01"), 0x31, "\x01"));
    atlas.AddRow({}, 0);
    // A file without rows leaves those of the table, and bytes behind its last row are no error.
    ReadInto(atlas, std::string("\x07\0\0\0\x08\0\0\0\0\0\0\0 and more", 21));
    EXPECT_EQ(atlas.Version, 7U);
    EXPECT_EQ(atlas.ColumnCount, 8U);
    EXPECT_EQ(atlas.GetRow(1)->Styles.GetSize(), 32);
}

TEST(LayoutFile, IsLaidOverTheCatalogueByEqualKeys)
{
    // Stored: quantity 2 restyled, of a foreign device, and restyled once more; a foreign quantity twice.
    k_StyleAtlas stored;
    stored.ColumnCount = 3;
    for (const auto& [quantity, device] : {std::pair<WORD, short>{2, 0}, {2, 1}, {2, 0}, {9, 0}, {9, 0}})
        stored.AddRow({quantity, 0, 0, device, 0}, static_cast<BYTE>(2 + stored.Rows.GetSize()));
    for (INT_PTR i = 0; i < 5; ++i)
        stored.GetRowStyle(i, 0)->LineWidth = static_cast<short>(10 + i);
    stored.GetRow(0)->ReservedFlag = true;

    test::SetUnits({{0, 2, 0, 0, 0}, {0, 2, 0, 0, 0}, {0, 3, 0, 0, 0}}); // a group row and two equal rows
    k_StyleAtlas atlas;
    atlas.FilePath = _T("file");
    atlas.BuildCatalogue();
    ReadInto(atlas, BytesOf(stored));
    EXPECT_EQ(atlas.ColumnCount, 3U);
    EXPECT_EQ(atlas.FilePath, _T("file"));
    ASSERT_EQ(atlas.Rows.GetSize(), 6);
    EXPECT_EQ(atlas.GetRow(0)->Styles.GetSize(), 32); // a catalogue row that the file lacks stays as it was
    EXPECT_EQ(atlas.GetRow(1)->Quantity, 2);          // the last stored row, in the catalogue's place
    EXPECT_EQ(atlas.GetRow(1)->Level, 4);
    EXPECT_FALSE(atlas.GetRow(1)->ReservedFlag);
    EXPECT_EQ(atlas.GetRow(1)->Styles.GetSize(), 3);
    EXPECT_EQ(atlas.GetRowStyle(1, 0)->LineWidth, 12);
    EXPECT_EQ(atlas.GetRowStyle(2, 0)->LineWidth, 1); // of equal rows the first is replaced
    EXPECT_EQ(atlas.GetRow(4)->Device, 1);            // the foreign rows, behind the catalogue
    EXPECT_EQ(atlas.GetRowStyle(4, 0)->LineWidth, 11);
    EXPECT_EQ(atlas.GetRow(5)->Quantity, 9); // twins become one
    EXPECT_EQ(atlas.GetRowStyle(5, 0)->LineWidth, 14);
}

TEST(LayoutFile, HoldsAllRowsOfATableAndAllRecordsOfARow)
{
    constexpr INT_PTR rows = 263'000;
    k_StyleAtlas atlas;
    atlas.ColumnCount = 0;
    for (INT_PTR i = 0; i < rows; ++i)
        atlas.AddRow({static_cast<WORD>(i), static_cast<WORD>(i >> 16), 0, 0, 0}, 0);
    for (int i = 0; i < 200; ++i)
        atlas.GetRow(0)->Styles.Add(new k_LineDef);
    k_StyleAtlas back;
    ReadInto(back, BytesOf(atlas));
    EXPECT_EQ(back.Rows.GetSize(), rows);
    EXPECT_EQ(back.GetRow(0)->Styles.GetSize(), 200);
    EXPECT_EQ(back.GetRowStyle(0, 32), nullptr);
}

TEST(LayoutFile, EmptySlotsAreToldAndLeftOutOfTheCount)
{
    const test::MessageRecorder messages;
    k_StyleAtlas atlas;
    atlas.ColumnCount = 1;
    atlas.Rows.Add(nullptr);
    atlas.AddRow({5, 0, 0, 0, 0}, 0);
    atlas.Rows.Add(nullptr);
    atlas.GetRow(1)->Styles.SetSize(2); // a place without a record is stored as one as constructed
    const std::string file = BytesOf(atlas);
    EXPECT_EQ(messages.Messages(), (std::vector<test::Message>{{u"pDesc == NULL\n0", u"Error", MB_OK},
                                                               {u"pDesc == NULL\n2", u"Error", MB_OK}}));
    k_StyleAtlas back;
    ReadInto(back, file);
    EXPECT_EQ(back.Rows.GetSize(), 1);
    EXPECT_EQ(back.GetRow(0)->Styles.GetSize(), 2);
}

TEST(DamagedLayoutFile, ClaimsOfTwoBillionRowsOrRecordsAreRefusedAndTakeNoMemory)
{
    const std::string most("\xFF\xFF\xFF\x7F", 4);
    for (const auto& [file, cause] :
         {std::pair(WithBytes(MinimalFile(), 0x08, most), int{CArchiveException::endOfFile}),
          {WithBytes(MinimalFile(), 0x0C, most), CArchiveException::genericException},
          {WithBytes(MinimalFile(), 0x08, "\xFF\xFF\xFF\xFF"), CArchiveException::endOfFile},
          // As many rows, or records, as a file with holes can have that takes no room on the disk.
          {WithBytes(MinimalFile(), 0x08, most) + std::string(20 << 20, '\0'),
           CArchiveException::genericException},
          {WithBytes(MinimalFile(), 0x0C, most) + std::string(1 << 20, '\0'),
           CArchiveException::genericException}}) {
        k_StyleAtlas atlas;
        EXPECT_EQ(CauseOfRefusal(atlas, file), cause);
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    EXPECT_LT(usage.ru_maxrss, 1 << 20); // KiB; room for two billion pointers is 16 GiB
    k_StyleAtlas atlas;
    EXPECT_THROW(ReadInto(atlas, WithBytes(MinimalFile(), 0x0C, "\xFF\xFF\xFF\xFF")), CInvalidArgException*);
    EXPECT_EQ(atlas.Rows.GetSize(), 0);
}

} // namespace
