// The layout tool, run through the sample host, on a file that the style atlas wrote and on damaged ones.
#include "support/LayoutBytes.h"
#include "support/Process.h"
#include "support/TempPrefix.h"

#include <bindings/distinct/Sight.h>

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
    last.LineWidth = 6;
    last.UseSymbolColor = true;
    atlas.GetRow(1)->ReservedFlag = true;
    atlas.GetRow(1)->Level = 9;
    return test::BytesOf(atlas);
}

const std::string Quantity = "device 1, quantity 10, sub-quantity 2, index 0, flags 0x0";
const std::string Group = "no device, quantity 999, the whole group, index 7, flags 0xF0; "
                          "level 9, reserved flag, 0 records\n";
const std::string Plain = "no symbol; solid line, width 1, #000000\n";
const std::string Last = "unknown symbol 77, empty, size -3, #112233; solid line, width 6, #112233 as the "
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
    for (const std::string command : {"show \"$0\"", "--help"})
        EXPECT_EQ(test::Run({"sh", "-c", ATLAS_HOST " layout " + command + " >/dev/full", whole}, {}).Errors,
                  "atlas-layout: the output cannot be written\n");
    EXPECT_EQ(Run({"show", whole, "--theirs"}).Status, 2) << "an option of another command";
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

bool Has(const test::Outcome& outcome, std::string_view text)
{
    return (outcome.Output + outcome.Errors).find(text) != std::string::npos;
}

TEST_F(LayoutTool, ExplainsWhichRowAnswers)
{
    const std::string path = File("good.layout");
    const std::tuple<std::vector<std::string>, std::vector<std::string>, int> cases[] = {
        {{path, "10,2,0,1", "--column", "2"},
         {"Table: the layout file " + path, "at stage 4 of 4: O_3: " + Quantity,
          "stage 4, index and flags too: it agrees", "Style: unknown symbol 77"},
         0},
        {{path, "O_3"}, {Quantity + "; file column 0\n", "Style: no symbol; solid line"}, 0},
        {{path, "10,2,7,1,0x3"},
         {"at stage 3 of 4: O_3: " + Quantity, "stage 4, index and flags too: no row"},
         0},
        {{path, "10,2,0,-1"},
         {"at stage 2 of 4", "a row of its own would fit best: O_3: no device, quantity 10"},
         0},
        {{path, "20,200,0,5"},
         {"at stage 1 of 4: Temp: device 3", "rows further down that fit as well: 14",
          "file does not have this row"},
         0},
        {{path, "10,2,0,1", "--column", "3"}, {"no record for this file column"}, 1},
        {{path, "998"}, {"No row has quantity 998: there is no style."}, 1},
        {{"O_3", "--host", "AirLab", "--column", "1"},
         {"as there is no layout file /", "Style: cross, empty, size 10, #A52A00"},
         0},
        {{"O_3", "--host", "Tandrell", "--column", "1"}, {"Style: cross, empty, size 10, #000000"}, 0},
        {{File("bad.layout", 100), "O_3"}, {"is damaged", "Style: no symbol; solid line"}, 2},
        {{path, "10,2,0,1,0,0"}, {"is neither the symbol"}, 2},
        {{path, "O_3", "--host", "AirLab"}, {"takes a quantity"}, 2},
        {{"/nowhere", "O_3"}, {"/nowhere: No such file"}, 2}};
    for (const auto& [words, texts, status] : cases) {
        std::vector<std::string> command{"explain"};
        command.insert(command.end(), words.begin(), words.end());
        const test::Outcome outcome = Run(command);
        EXPECT_EQ(outcome.Status, status) << outcome.Output << outcome.Errors;
        for (const std::string& text : texts)
            EXPECT_TRUE(Has(outcome, text)) << text << "\n" << outcome.Output << outcome.Errors;
    }
    EXPECT_FALSE(exists(m_prefix.Path() / "registry.db") || exists(m_prefix.Native())) << "it only looks";
    const std::string own = m_prefix.MakeFolder("ProgramData/Halvorn/AirLab") / "Style.Atlas";
    std::filesystem::copy(path, own);
    EXPECT_TRUE(Has(Run({"explain", "--host", "AirLab", "O_3"}), "the layout file " + own));
}

const std::string Document =
    R"({
  "version": 1, "fileColumns": 32,
  "rows": [
    {
      "symbol": "O_3",
      "key": {"quantity": 10, "subQuantity": 2, "index": 0, "device": 1, "flags": 0},
      "level": 0,
      "styles": [
        {"columns": "0-1", "shape": "none", "fill": "empty", "size": 10, "color": "#000000", "line": "solid", )"
    R"("width": 1, "lineColor": "#000000", "useSymbolColor": false},
        {"columns": "2", "shape": 77, "fill": "empty", "size": -3, "color": "#11223307", "line": "solid", )"
    R"("width": 6, "lineColor": "#00000005", "useSymbolColor": true, "reserved": 4660}
      ]
    },
    {
      "key": {"quantity": 999, "subQuantity": 65535, "index": 7, "device": -1, "flags": 240},
      "level": 9, "reserved": true,
      "styles": []
    }
  ]
}
)";

TEST_F(LayoutTool, BringsAFileToJsonAndBack)
{
    EXPECT_EQ(Run({"export", "--json", File("good.layout")}).Output, Document);
    const std::string json = m_prefix.Path() / "layout.json";
    const std::string made = m_prefix.Path() / "made.layout";
    k_StyleAtlas full; // a row twice, and more records than there are file columns
    full.Rows.Add(new k_QuantityDesc(QuantityKey{0xFFFF, 0, 0xFF, -32768, 0xFFFFFFFF}));
    full.Rows.Add(new k_QuantityDesc(QuantityKey{0xFFFF, 0, 0xFF, -32768, 0xFFFFFFFF}));
    full.Version = full.ColumnCount = 0xFFFFFFFF;
    for (int i = 0; i < 32768; ++i) {
        full.GetRow(1)->Styles.Add(new k_LineDef);
        k_LineDef& record = *full.GetRow(1)->Styles.GetAt(i);
        record.SymbolShape = record.LineStyle = record.SymbolFill = static_cast<short>(i / 9 % 14 - 2);
        record.LineColor = i > 32000 ? static_cast<COLORREF>(i) * 131071 : 0;
    }
    for (const std::string& bytes : {GoodFile(), test::BytesOf(full), std::string(12, '\0')}) {
        test::WriteWhole(made, bytes);
        test::WriteWhole(json, Run({"export", made}).Output);
        EXPECT_TRUE(Run({"import", json}).Output == bytes);
        std::filesystem::remove(made);
        const std::string link = m_prefix.Path() / "link";
        std::filesystem::remove(link);
        std::filesystem::create_symlink("made.layout", link);
        EXPECT_EQ(Run({"import", "--json", json, link}).Status, 0);
        EXPECT_TRUE(test::ReadWhole(made) == bytes && std::filesystem::is_symlink(link));
    }
    EXPECT_EQ(Run({"import", json, "/dev/full"}).Errors,
              "atlas-layout: /dev/full: No space left on device\n");
    EXPECT_EQ(Run({"export", File("cut.layout", 75)}).Output, "");
}

TEST_F(LayoutTool, SaysWhereADocumentIsWrong)
{
    const std::string path = m_prefix.Path() / "wrong.json";
    const std::string target = File("target.layout");
    const auto changed = [](std::string_view from, std::string_view to) {
        return std::string{Document}.replace(Document.find(from), from.size(), to);
    };
    const std::string deep(1000000, '[');
    const std::pair<std::string, const char*> cases[] = {
        {"", "line 1, column 1: not JSON: "},
        {"{\"version\": 1,\n \"\xC3\xBC\xFF\"", "line 2, column 4: not JSON: "},
        {Document + "{", "line 20, column 1: not JSON: "},
        {deep, "line 1, column 1: no array belongs here"},
        {changed("1,", deep), "line 2, column 14: no array belongs here"},
        {changed("\"O_3\"", "{\"a\": 1}"), "line 5, column 17: no object belongs here"},
        {changed("\"O_3\"", "3"), "line 5, column 17: a text is expected here"},
        {changed("[\n        {", "[7, {"), "line 8, column 18: an object or an array is expected here"},
        {changed("\"version\": 1", "\"version\":\n4294967296\n"),
         "line 3, column 10: a whole number from 0 to 4294967295"},
        {changed("\"version\": 1", "\"version\": 1e999"), "line 2, column 19: not JSON: number overflow"},
        {changed("\"version\": 1", "\"version\": 1.5"), "line 2, column 16: a text, a whole number"},
        {changed("\"device\": 1", "\"device\": 32768"), "a whole number from -32768 to 32767 is expected"},
        {changed("\"level\": 0", "\"level\": null"), "line 7, column 19: a text, a whole number"},
        {changed("\"level\"", "\"levels\""), "line 7, column 14: unknown name \"levels\""},
        {changed("\"level\": 0", "\"level\": 0, \"level\": 0"),
         "line 7, column 25: \"level\" is there twice"},
        {changed("\"level\": 0,", ""), "line 12, column 5: \"level\" is missing"},
        {changed("\"0-1\"", "\"1-2\""), "line 9, column 25: file columns from 0 on"},
        {changed("\"2\"", "\"2-32768\""), "line 10, column 29: file columns from 2 on"},
        {changed("\"none\"", "\"nose\""),
         "line 9, column 42: one of these, or a number, is expected here: none, cross"},
        {changed("\"#000000\"", "\"#00000G\""), "a colour as"},
        {R"({"version": 1, "fileColumns": 32})", "\"rows\" is missing in what ends here"},
        {changed("false", "0"), "true or false is expected here"}};
    for (const auto& [document, message] : cases) {
        test::WriteWhole(path, document);
        const test::Outcome outcome = Run({"import", path, target});
        EXPECT_EQ(outcome.Status, 1);
        EXPECT_TRUE(Has(outcome, "atlas-layout: " + path + ": ") && Has(outcome, message)) << message << "\n"
                                                                                           << outcome.Errors;
        EXPECT_TRUE(test::ReadWhole(target) == GoodFile());
    }
}

TEST_F(LayoutTool, MergesChangesOfTwo)
{
    const std::string base = File("base.layout");
    const std::string output = m_prefix.Path() / "merged.layout";
    const auto with = [](std::string file, std::size_t at, std::string_view bytes) {
        return file.replace(at, bytes.size(), bytes);
    };
    const std::string good = GoodFile();
    const std::string oneRow = with(good.substr(0, 92), 8, "\1"sv);
    const std::string added = with(good, 8, "\3"sv).insert(12, std::string(16, '\0') + '\1');
    const std::string record = " O_3: " + Quantity + "\n  file column ";
    // Ours, theirs, the merged file, and with theirs preferred where they conflict, the conflicts.
    const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
        {with(good, 39, "\4"), with(good, 43, "\5"), with(with(good, 39, "\4"), 43, "\5"),
         ""}, // of one record
        {with(good, 0, "\2"), with(good, 91, "\0"sv), with(with(good, 0, "\2"), 91, "\0"sv), ""},
        {with(good, 50, "\1"), with(good, 50, "\1"), with(good, 50, "\1"), ""},
        {with(good, 0, "\2"), with(good, 0, "\3"), with(good, 0, "\3"), "version: base 1, ours 2, theirs 3"},
        {with(good, 39, "\4"), with(good, 39, "\5"), with(good, 39, "\5"),
         "file column 0  shape: base \"none\", ours \"square\", theirs \"plus\""},
        {oneRow, with(good, 0, "\2"), with(oneRow, 0, "\2"), ""},
        {with(good, 0, "\2"), oneRow, with(oneRow, 0, "\2"), ""},
        {oneRow, with(good, 108, "\1"), with(good, 108, "\1"), "deleted by ours, changed by theirs"},
        {with(good, 108, "\1"), oneRow, oneRow, "changed by ours, deleted by theirs"},
        {with(good, 39, "\4"), added, with(added, 56, "\4"), ""},
        {with(added, 28, "\2"), added, added, "level: ours 2, theirs 1"},
        {with(good.substr(0, 71) + good.substr(92), 12, "\2"), with(good, 39, "\4"),
         with(with(good.substr(0, 71) + good.substr(92), 12, "\2"), 39, "\4"), ""},
        {with(good.substr(0, 71) + good.substr(92), 12, "\2"), with(good, 81, "\4"), with(good, 81, "\4"),
         "number of records: ours 2, theirs 3"}};
    for (const auto& [ourBytes, theirBytes, merged, conflict] : cases) {
        const std::string ours = m_prefix.Path() / "ours.layout";
        const std::string theirs = m_prefix.Path() / "theirs.layout";
        test::WriteWhole(ours, ourBytes);
        test::WriteWhole(theirs, theirBytes);
        const test::Outcome outcome = Run({"merge", base, ours, theirs});
        EXPECT_EQ(outcome.Status, conflict.empty() ? 0 : 1);
        EXPECT_TRUE(Has(outcome, conflict) && outcome.Output.empty() == conflict.empty()) << outcome.Output;
        EXPECT_TRUE(test::ReadWhole(ours) == (conflict.empty() ? merged : ourBytes)) << conflict;
        test::WriteWhole(ours, ourBytes);
        EXPECT_EQ(Run({"merge", "--theirs", "--output", output, base, ours, theirs}).Status, 0);
        EXPECT_TRUE(test::ReadWhole(output) == merged && test::ReadWhole(ours) == ourBytes) << conflict;
        EXPECT_EQ(Run({"merge", "--ours", "--output", output, base, ours, theirs}).Status, 0);
        EXPECT_TRUE(conflict.empty() || test::ReadWhole(output) == ourBytes) << conflict;
    }
    EXPECT_EQ(Run({"merge", base, base, File("bad.layout", 4)}).Status, 2);
    const std::string none = m_prefix.Path() / "none.layout";
    test::WriteWhole(none, "");
    EXPECT_EQ(Run({"merge", "--output", output, none, base, base}).Status, 0) << "added by both";
    EXPECT_TRUE(test::ReadWhole(output) == good);
}

// The test data of Sharma, Wu and Dalal (2005): two colours each, and their difference.
TEST(ColorDifference, IsThatOfThePublishedPairs)
{
    constexpr double pairs[][7] = {{50, 2.6772, -79.7751, 50, 0, -82.7485, 2.0425},
                                   {50, 3.1571, -77.2803, 50, 0, -82.7485, 2.8615},
                                   {50, 2.8361, -74.02, 50, 0, -82.7485, 3.4412},
                                   {50, -1.3802, -84.2814, 50, 0, -82.7485, 1},
                                   {50, -1.1848, -84.8006, 50, 0, -82.7485, 1},
                                   {50, -0.9009, -85.5211, 50, 0, -82.7485, 1},
                                   {50, 0, 0, 50, -1, 2, 2.3669},
                                   {50, -1, 2, 50, 0, 0, 2.3669},
                                   {50, 2.49, -0.001, 50, -2.49, 0.0009, 7.1792},
                                   {50, 2.49, -0.001, 50, -2.49, 0.001, 7.1792},
                                   {50, 2.49, -0.001, 50, -2.49, 0.0011, 7.2195},
                                   {50, 2.49, -0.001, 50, -2.49, 0.0012, 7.2195},
                                   {50, -0.001, 2.49, 50, 0.0009, -2.49, 4.8045},
                                   {50, -0.001, 2.49, 50, 0.001, -2.49, 4.8045},
                                   {50, -0.001, 2.49, 50, 0.0011, -2.49, 4.7461},
                                   {50, 2.5, 0, 50, 0, -2.5, 4.3065},
                                   {50, 2.5, 0, 73, 25, -18, 27.1492},
                                   {50, 2.5, 0, 61, -5, 29, 22.8977},
                                   {50, 2.5, 0, 56, -27, -3, 31.9030},
                                   {50, 2.5, 0, 58, 24, 15, 19.4535},
                                   {50, 2.5, 0, 50, 3.1736, 0.5854, 1},
                                   {50, 2.5, 0, 50, 3.2972, 0, 1},
                                   {50, 2.5, 0, 50, 1.8634, 0.5757, 1},
                                   {50, 2.5, 0, 50, 3.2592, 0.335, 1},
                                   {60.2574, -34.0099, 36.2677, 60.4626, -34.1751, 39.4387, 1.2644},
                                   {63.0109, -31.0961, -5.8663, 62.8187, -29.7946, -4.0864, 1.2630},
                                   {61.2901, 3.7196, -5.3901, 61.4292, 2.2480, -4.9620, 1.8731},
                                   {35.0831, -44.1164, 3.7933, 35.0232, -40.0716, 1.5901, 1.8645},
                                   {22.7233, 20.0904, -46.6940, 23.0331, 14.9730, -42.5619, 2.0373},
                                   {36.4612, 47.8580, 18.3852, 36.2715, 50.5065, 21.2231, 1.4146},
                                   {90.8027, -2.0831, 1.4410, 91.1528, -1.6435, 0.0447, 1.4441},
                                   {90.9257, -0.5406, -0.9208, 88.6381, -0.8985, -0.7239, 1.5381},
                                   {6.7747, -0.2908, -2.4247, 5.8714, -0.0985, -2.2286, 0.6377},
                                   {2.0776, 0.0795, -1.1350, 0.9033, -0.0636, -0.5514, 0.9082}};
    for (const auto& [l1, a1, b1, l2, a2, b2, difference] : pairs) {
        EXPECT_NEAR(styleatlas::distinct::Difference({l1, a1, b1}, {l2, a2, b2}), difference, 0.00005);
        EXPECT_NEAR(styleatlas::distinct::Difference({l2, a2, b2}, {l1, a1, b1}), difference, 0.00005);
    }
}

TEST(Sight, LeavesGreysAsTheyAre)
{
    using namespace styleatlas::distinct;
    for (const Sight sight : Sights) {
        for (const std::uint32_t grey : {0x000000U, 0x777777U, 0xFFFFFFU})
            EXPECT_LT(Difference(Seen({grey}, sight), Seen({grey}, Sight::Normal)), 0.001);
    }
    EXPECT_NEAR(Seen({0xFFFFFF}, Sight::Normal).l, 100, 0.001);
}

TEST_F(LayoutTool, FindsCurvesThatCannotBeToldApart)
{
    const std::string path = m_prefix.Path() / "two.layout";
    struct Look {
        COLORREF line;
        short lineStyle = PS_SOLID;
        short shape = 0; // no symbol: its colour doesn't show
        COLORREF symbol = RGB(0, 255, 255);
        bool usesSymbolColor = false;
        short fill = 1;
        short lineWidth = 1;
    };
    const auto find = [&](const Look& one, const Look& other, const char* ground = "white") {
        k_StyleAtlas atlas;
        atlas.ColumnCount = 1;
        for (const Look& look : {one, other}) {
            const INT_PTR row = atlas.AddRow({static_cast<WORD>(900 + atlas.Rows.GetSize())}, 0);
            k_LineDef& record = *atlas.GetRowStyle(row, 0);
            record.LineColor = look.line;
            record.LineStyle = look.lineStyle;
            record.SymbolShape = look.shape;
            record.SymbolColor = look.symbol;
            record.UseSymbolColor = look.usesSymbolColor;
            record.SymbolFill = look.fill;
            record.LineWidth = look.lineWidth;
        }
        test::WriteWhole(path, test::BytesOf(atlas));
        return Run({"distinct", path, "--columns", "0", "--quantities", "900-901", "--against", ground});
    };
    const std::string all = "too close in colour: ";
    EXPECT_EQ(find({RGB(0, 0, 0)}, {RGB(200, 0, 0)}).Status, 0);
    EXPECT_EQ(find({RGB(0, 0, 0)}, {RGB(0, 0, 0), PS_DASH}).Status, 0) << "another figure";
    const std::string same = "the same symbol, line and colours";
    EXPECT_TRUE(Has(find({RGB(9, 9, 9)}, {0x07090909}), same));
    EXPECT_TRUE(Has(find({0, PS_SOLID, 0, 0, false, 0, 3}, {0, PS_DASH, 0, 0, false, 0, -3}), same));
    const test::Outcome unseen = find({RGB(0, 0, 0)}, {RGB(0, 0, 0), PS_NULL});
    EXPECT_TRUE(Has(unseen, "nothing is drawn:\n  ") && Has(unseen, ": no symbol; no line\n"))
        << unseen.Output;
    EXPECT_EQ(unseen.Status, 1);
    // Shape, and two fills.
    for (const auto& [shape, one, other, areSame] : {std::tuple<short, short, short, bool>{1, 1, 2, true},
                                                     {4, 1, 7, true},
                                                     {4, 0, 7, false},
                                                     {6, 0, 1, true},
                                                     {6, 1, 2, false},
                                                     {8, 0, 7, true},
                                                     {8, 1, 7, false}}) {
        const test::Outcome found =
            find({0, PS_NULL, shape, 0, false, one}, {0, PS_NULL, shape, 0, false, other});
        EXPECT_TRUE(Has(found, same) == areSame && found.Status == (areSame ? 1 : 0))
            << shape << found.Output;
    }
    const test::Outcome dark = find({RGB(0, 0, 0)}, {RGB(10, 10, 10)});
    EXPECT_TRUE(Has(dark, all + "normal sight ") && dark.Status == 1) << dark.Output;
    EXPECT_TRUE(Has(dark, "#000000\n") && Has(dark, "#0A0A0A\n")) << dark.Output;
    const std::tuple<COLORREF, COLORREF, const char*> blind[] = {
        {RGB(0xD5, 0x00, 0x00), RGB(0x6B, 0x6B, 0x6B), "greyscale"},
        {RGB(0xB0, 0x30, 0x00), RGB(0x4C, 0x4C, 0x00), "protan"},
        {RGB(0xA0, 0x30, 0x00), RGB(0x60, 0x60, 0x00), "deutan"},
        {RGB(0x00, 0x60, 0xA0), RGB(0x00, 0x6A, 0x6A), "tritan"}};
    for (const auto& [one, other, sight] : blind) {
        const test::Outcome found = find({one}, {other});
        EXPECT_TRUE(Has(found, sight) && !Has(found, "normal sight")) << sight << found.Output;
    }
    const test::Outcome faint = find({RGB(0, 0, 0)}, {RGB(255, 255, 0)});
    EXPECT_TRUE(Has(faint, "too little contrast to the ground, 1.1:\n  ") && Has(faint, "#FFFF00\n"));
    EXPECT_TRUE(
        Has(find({RGB(0, 0, 0)}, {RGB(255, 255, 0)}, "#101010"), "too little contrast to the ground, 1.1:"));
    const Look symbol{RGB(0, 0, 255), PS_SOLID, 8, RGB(0, 255, 255), true}; // and the line in its colour
    EXPECT_TRUE(Has(find(symbol, {RGB(0, 0, 0)}), "too little contrast to the ground, 1.3:"));
    EXPECT_EQ(Run({"distinct", "--quantities", "900", "--columns", "3-1"}).Status, 2);
    EXPECT_TRUE(Has(Run({"distinct", path, "--quantities", "O_3,900-901", "--columns", "0"}), same));
    EXPECT_EQ(Run({"distinct", path, "--quantities", "O_3,nothing"}).Status, 2);
    EXPECT_EQ(Run({"distinct", "--quantities", "10-12", "--columns", "0-1"}).Status, 0)
        << "the default styles";
}

} // namespace
