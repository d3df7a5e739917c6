// The layout tool, run through the sample host, on a file that the style atlas wrote and on damaged ones.
#include "support/LayoutBytes.h"
#include "support/Process.h"
#include "support/TempPrefix.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace
{

using namespace std::string_view_literals;

// 109 bytes: at 12 a quantity with records at 29, 50 and 71, the first two alike; at 92 a group without.
std::string GoodFile()
{
    k_StyleAtlas atlas;
    atlas.Rows.Add(new k_QuantityDesc(QuantityKey{10, 2, 0, 1, 0}));
    atlas.Rows.Add(new k_QuantityDesc(QuantityKey{999, 65535, 7, -1, 0xF0}));
    for (int column = 0; column < 3; ++column)
        atlas.GetRow(0)->SetColumnStyle(column, new k_LineDef);
    k_LineDef& last = *atlas.GetRowStyle(0, 2);
    last.Reserved = 0x1234;
    last.SymbolColor = 0x07332211;
    last.LineColor = 0x05000000;
    last.SymbolShape = 77;
    last.SymbolSize = -3;
    last.UseSymbolColor = true;
    atlas.GetRow(1)->ReservedFlag = true;
    atlas.GetRow(1)->Level = 9;
    return test::BytesOf(atlas);
}

const std::string Quantity = "device 1, quantity 10, sub-quantity 2, index 0, flags 0x0";
const std::string Group = "no device, quantity 999, the whole group, index 7, flags 0xF0; "
                          "level 9, reserved flag, 0 records\n";
const std::string Plain = "no symbol; solid line, width 1, #000000\n";
const std::string Last = "unknown symbol 77, empty, size -3, #112233; solid line, width 1, #112233 as the "
                         "symbol; reserved 0x1234; symbol colour with 0x7; line colour with 0x5\n";

class LayoutTool : public testing::Test
{
protected:
    static test::Outcome Run(std::vector<std::string> words)
    {
        words.insert(words.begin(), {ATLAS_HOST, "layout"});
        return test::Run(words, {"MENSURA_CATALOGUE"});
    }

    // A good file of another size, with other bytes at a place.
    std::string File(const char* name, std::size_t size = 109, std::size_t at = 0,
                     std::string_view bytes = "") const
    {
        std::string file = GoodFile();
        file.resize(size);
        test::WriteWhole(m_prefix.Path() / name, file.replace(at, bytes.size(), bytes));
        return m_prefix.Path() / name;
    }

    const test::TempPrefix m_prefix;
};

TEST_F(LayoutTool, ShowsAFileInWords)
{
    const std::string head = ": version 1, 32 file columns, 2 rows\n\nO_3: " + Quantity;
    const std::string firstTwo = " records\n  file columns 0 to 1     " + Plain;
    const std::string whole = File("whole.layout");
    EXPECT_EQ(Run({"show", whole}).Output,
              whole + head + "; level 0, 3" + firstTwo + "  file column 2           " + Last + "\n" + Group);
    const std::string cut = File("cut.layout", 75);
    const test::Outcome shown = Run({"show", cut});
    EXPECT_EQ(shown.Output, cut + head + "; level 0, 2" + firstTwo) << "what stands before the damage";
    EXPECT_TRUE(shown.Errors.starts_with("atlas-layout: " + cut + ": damaged at byte 75")) << shown.Errors;
    EXPECT_EQ(shown.Status, 1);
    EXPECT_EQ(test::Run({"sh", "-c", ATLAS_HOST " layout show \"$0\" >/dev/full", whole}, {}).Errors,
              "atlas-layout: the output cannot be written\n");
}

TEST_F(LayoutTool, ReportsWhereAFileIsDamaged)
{
    const std::tuple<std::size_t, std::size_t, std::string_view, const char*> cases[] = {
        {109, 0, "", "good, 2 rows with 3 records"},
        {109, 8, "\1"sv, "good, 1 row with 3 records; 17 bytes at the end that nothing reads"},
        {11, 0, "", "damaged at byte 11: the file ends within its head"},
        {28, 0, "", "damaged at byte 28: the file claims 2 rows, but ends within the head of row 0"},
        {109, 8, "\3"sv, "damaged at byte 109: the file claims 3 rows, but ends within the head of row 2"},
        {109, 12, "\xFE\xFF\xFF\xFF"sv,
         "damaged at byte 29: row 0 claims -2 records, of which 0 to 32768 are allowed"},
        {109, 12, "\1\x80\0\0"sv,
         "damaged at byte 29: row 0 claims 32769 records, of which 0 to 32768 are allowed"},
        {109, 12, "\0\x80\0\0"sv,
         "damaged at byte 109: row 0 claims 32768 records, but the file ends within record 3"}};
    for (const auto& [size, at, bytes, verdict] : cases) {
        const std::string path = File("case.layout", size, at, bytes);
        const test::Outcome checked = Run({"check", path});
        EXPECT_EQ(checked.Output, path + ": " + verdict + "\n");
        EXPECT_EQ(checked.Status, verdict[0] == 'g' ? 0 : 1);
    }
    // A file with holes, which takes no room on the disk, takes neither memory nor time.
    const std::string sparse = File("sparse.layout", 109, 8, "\xFF\xFF\xFF\xFF"sv);
    std::filesystem::resize_file(sparse, std::uintmax_t{1} << 40);
    EXPECT_EQ(Run({"check", sparse}).Output,
              sparse + ": damaged at byte 17825935: more than 1048576 rows replace earlier ones\n");
    const std::string pipe = m_prefix.Path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const test::Outcome unread = Run({"check", pipe, File("good.layout")});
    EXPECT_EQ(unread.Errors, "atlas-layout: " + pipe + ": not a regular file\n");
    EXPECT_TRUE(unread.Status == 1 && !unread.Output.empty());
}

TEST_F(LayoutTool, ComparesFiles)
{
    const std::string row = " O_3: " + Quantity + "\n";
    const std::tuple<std::size_t, std::string_view, std::string> cases[] = {
        {91, "\7", ""}, // as true as 1
        {0, "\2", "-version 1, 32 file columns\n+version 2, 32 file columns\n"},
        {45, "\5", row + "-  file column 0  " + Plain + "+  file column 0  no symbol; no line\n"},
        {64, "\2", row + "-  file column 1  fill 1\n+  file column 1  fill 2\n"}, // which does not show
        {102, "\10", "-" + Group + "+" + std::string{Group}.replace(Group.find('7'), 1, "8")},
        {92, "\0\0\0\0\1\0\x0A\0\2\0\0\0\0\0\0"sv, // takes the place of the first row
         row + "-  level 0, 3 records\n+  level 9, reserved flag, 0 records\n-  file columns 0 to 1  " +
             Plain + "+  file columns 0 to 1  no record\n-  file column 2  " + Last +
             "+  file column 2  no record\n-" + Group}};
    const std::string before = File("old.layout");
    for (const auto& [at, bytes, difference] : cases) {
        const std::string after = File("new.layout", 109, at, bytes);
        const test::Outcome compared = Run({"diff", before, after});
        const std::string paths = "--- " + before + "\n+++ " + after + "\n";
        EXPECT_EQ(compared.Output, difference.empty() ? "" : paths + difference);
        EXPECT_EQ(compared.Status, difference.empty() ? 0 : 1);
    }
    const test::Outcome failed = Run({"diff", before, File("bad.layout", 4)});
    EXPECT_NE(failed.Errors.find("bad.layout"), std::string::npos) << failed.Errors;
    EXPECT_EQ(failed.Status, 2);
}

} // namespace
