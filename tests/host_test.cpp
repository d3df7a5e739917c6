// The sample host, run as a user runs it.
#include "support/Process.h"
#include "support/TempPrefix.h"

#include <QImage>
#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <utility>

namespace
{

namespace fs = std::filesystem;

using Words = std::vector<std::string>;

const std::array<std::string, 5> Colors = {"#000000", "#A52A00", "#004040", "#005500", "#00005E"};
constexpr std::array Curves = {"Ozone", "Solar", "Wind", "Temp"};

// What the rules make of the first curves, by the number of the symbol and of the colour.
std::string StyleText(std::size_t symbol, std::size_t color)
{
    constexpr const char* symbols[] = {"", "cross, empty", "triangle, empty with dot", "triangle 2, filled",
                                       "square, empty"};
    const std::string line = "; solid line, width 1, " + Colors[color];
    return symbol == 0 ? "no symbol" + line : symbols[symbol] + (", size 10, " + Colors[color]) + line;
}

struct Result : test::Outcome {
    // The last cell of the line that begins with these. Two blanks or more part cells, and stand in none.
    std::string StyleIn(const std::string& first) const
    {
        const QString pattern = QString::fromStdString("\n *" + first + "  (?:.*  )?(.*)");
        const auto found = QRegularExpression{pattern}.match(QString::fromStdString(Output));
        EXPECT_TRUE(found.hasMatch()) << first << " is missing in " << Output;
        return found.captured(1).toStdString();
    }

    bool IsSaying(std::string_view text) const { return Errors.find(text) != std::string::npos; }
};

class Host : public testing::Test
{
protected:
    Result Run(Words words, int output = -1) const
    {
        // Some programs hand down an ignored SIGCHLD.
        words.insert(words.begin(), {"env", "--ignore-signal=CHLD", m_program});
        return {test::Run(words, m_environment, output)};
    }

    std::string File(const std::string& name, std::string_view content) const
    {
        test::WriteWhole(m_folder / name, content);
        return m_folder / name;
    }

    static std::string Month(int file)
    {
        return DATA_FOLDER "/airquality-1973-0" + std::to_string(5 + file) + ".csv";
    }

    Result RunOnMonths(Words words, const char* command = "list") const
    {
        words.insert(words.end(), {command, Month(0), Month(1), Month(2), Month(3), Month(4)});
        return Run(words);
    }

    const test::TempPrefix m_prefix;
    const fs::path m_folder = m_prefix.MakeFolder().parent_path();
    std::string m_program = ATLAS_HOST;
    Words m_environment = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "MENSURA_CATALOGUE"};
};

TEST_F(Host, ShowsQuantityAndFileBySymbolAndColor)
{
    // In the last, the symbol stands for the file.
    for (const auto& [options, isOtherRule] :
         {std::pair(Words{}, false), {{"--host=Tandrell 2"}, false}, {{"--host", "tANDRELL"}, true}}) {
        const Result result = RunOnMonths(options);
        EXPECT_EQ(std::pair(result.Status, result.Errors), std::pair(0, std::string{}));
        for (std::size_t i = 0; i < Colors.size() * Curves.size(); ++i) {
            const std::size_t file = i / Curves.size();
            const std::size_t curve = i % Curves.size();
            EXPECT_EQ(result.StyleIn(std::to_string(file) + "  " + Curves[curve]),
                      isOtherRule ? StyleText(file, curve) : StyleText(curve + 1, file));
        }
    }
}

TEST_F(Host, ShowsTheWholeTableOfAFileColumn)
{
    const Result first = Run({"table"});
    EXPECT_EQ(std::ranges::count(first.Output, '\n'), 172);
    EXPECT_EQ(first.StyleIn("1 +10 +2 +0 +0x0  O_3"), StyleText(1, 0));
    EXPECT_TRUE(Run({"--column", "31", "table"}).StyleIn("1 +10").ends_with("width 1, #C0C0C0"));
}

TEST_F(Host, ReadsFilesOfAllSorts)
{
    const std::string path =
        File("sorts.csv", "\xEF\xBB\xBF\"Da,te\",\"u_RMS l1\" ,voltage,\"Wi\"\"nd\",\x1b[2J\r\n"
                          "1,+1.5,-2e3,,\r\n"
                          "\r\n"
                          "\"2\n,\",\" 7 \", x\x1b ,0,1\r\n"
                          "3,1,2,3,4,5\n"
                          "4,inf\n"
                          "5,1;5,+-1,\"2");
    const Result result = Run({"list", path});
    EXPECT_EQ(result.StyleIn("0  u_RMS l1  U_rms L1 .* 3 +2"), result.StyleIn("0  voltage   U_rms .* 2 +3"));
    const std::string at = "atlas-host: " + path;
    EXPECT_EQ(result.Errors, at + ":4: \"2\uFFFD,\" in column Da,te is not a number\n" + at +
                                 ":4: \"x\uFFFD\" in column voltage is not a number\n" + at +
                                 ":6: the line has 6 fields, the head line 5\n" + at +
                                 ":7: \"inf\" in column u_RMS l1 is not a number\n" + at +
                                 ":8: a quotation mark is never closed\n" + at +
                                 ":8: \"1;5\" in column u_RMS l1 is not a number\n" + at +
                                 ":8: \"+-1\" in column voltage is not a number\n" + at +
                                 ": no quantity fits the column \"Wi\"nd\", it is left out\n" + at +
                                 ": no quantity fits the column \"\uFFFD[2J\", it is left out\n");
    EXPECT_EQ(result.Output.find('\x1b'), std::string::npos);
}

TEST_F(Host, FindsTheFormOfAFile)
{
    // The list counts the readings and the missing ones of the ozone; the last is all that is remarked.
    const std::tuple<std::string_view, std::string, std::string> files[] = {
        {"Zeit;Ozone\n13.02.2024;12,5\n14.02.2024;13\n", "2 +0", ""},
        {"Nord; 7\nVon;1.2.2024\n\nZeit\tOzone (\xB5g)\n\tppb\n1.2.24 07:30\t1,5\t\n1.2.24 24:00\t1.234,5\n",
         "1 +1", ":7: \"1.234,5\" in column Ozone (\u00B5g) is not a number"},
        {"# d t Ozone\n// x\n 2024-02-13 07:30  1.5 \n% y\n2024/2/13\t7:45 2\n", "2 +0", ""},
        {"Date,Ozone\n2/3/2024 7:30 PM,\"12,5\"\n2/13/2024 12:00 AM,3\n", "2 +0", ""},
        {std::string_view{"\xFF\xFET\0;\0O\0_\0"
                          "3\0\n\0"
                          "1\0;\0"
                          "0\0,\0"
                          "5\0",
                          24},
         "1 +0", ""},
        {"D,Ozone\n1/2/2024,1\n", "1 +0",
         ":2: \"1/2/2024\" and all other dates are read with the day first; the month could be first too"},
        {"D,Ozone\n13/2/2024,1\n15-3-99,2\n3/14/2024,3\n", "3 +0",
         ":4: \"3/14/2024\" has day and month in another order than most dates; such rows left out: 1"},
        {"Site,Ozone\nA,1\n", "1 +0",
         ":2: \"A\" is neither a date nor a number, as all first fields; the rows are numbered"},
        {"t Temp Ozone\n1 5 3\n2   9\n", "1 +1", ":3: the line has 2 fields, the head line 3"},
        {"Date\tOzone\n2024-01-01\t1 234,5\n2024-01-02\t2\n", "1 +1",
         ":2: \"1 234,5\" in column Ozone is not a number"},
        {"D;Ozone;Temp\n24-02-13;7,5;2,5\n24-02-14;7,5;2,5\n", "2 +0",
         ":2: \"24-02-13\" is neither a date nor a number, as all first fields; the rows are numbered"},
        {"D;t;Ozone\n1.2.2024;10:00;1\n1.2.2024;;2\n", "2 +0", ":3: \"1.2.2024 \" in column D is not a date"},
        {"D,Ozone\r2024-01-01,2\r", "1 +0", ""},
        {"# pipe 3 \" long\nt Ozone\n1 2\n3 4\n", "2 +0", ""},
        {"1,2\n3,4\n", "", ": no line of headings above the data"},
        {std::string_view{"PK\0\1", 4}, "", ": not a text file"}};
    for (const auto& [content, counts, remark] : files) {
        const std::string path = File("form.csv", content);
        const Result result = Run({"list", path});
        EXPECT_EQ(result.Errors, remark.empty() ? "" : "atlas-host: " + path + remark + "\n");
        if (!counts.empty())
            result.StyleIn("0 .* O_3 .* " + counts);
    }
}

TEST_F(Host, ReportsAFileThatCannotBeReadAndShowsTheOthers)
{
    const std::string huge = File("huge.csv", "Date,Wind\n1,2\n");
    fs::resize_file(huge, std::uintmax_t{1} << 40);
    const std::string pipe = m_folder / "pipe.csv";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::pair<std::string, std::string_view> bad[] = {
        {m_folder / "none.csv", "No such file or directory"},
        {pipe, "not a regular file"},
        {huge, "larger than 64 MiB"},
        {"/proc/self/mem", "Input/output error"},
        {File("empty.csv", "\n\n"), "the file is empty"},
        {File("wide.csv", std::string(5000, ',')), "more than 4096 columns"}};
    for (const auto& [path, reason] : bad) {
        const Result result = Run({"list", path, Month(1)});
        EXPECT_EQ(result.Status, 1) << path;
        EXPECT_EQ(result.Errors, "atlas-host: " + path + ": " + std::string{reason} + "\n");
        EXPECT_EQ(result.StyleIn("1 +30") + result.StyleIn("1  Wind"), Month(1) + StyleText(3, 1)) << path;
    }
    std::string bare = std::string(4000, ',') + '\n';
    for (int i = 0; i < 5000; ++i)
        bare += "1\n";
    EXPECT_TRUE(Run({"list", File("bare.csv", bare)}).IsSaying("more than 16 million fields"));
}

TEST_F(Host, ShowsNoStyleWhereThereIsNone)
{
    Words words{"list"};
    words.insert(words.end(), 33, Month(0));
    EXPECT_EQ(Run(words).StyleIn("32  Temp"), "no style");
    m_environment[3] += "=" + (m_folder / "none").string();
    EXPECT_TRUE(RunOnMonths({}).IsSaying("no quantity fits the column \"Ozone\""));
    EXPECT_EQ(Run({"table"}).Output, "The unit library has no quantities.\n");
}

TEST_F(Host, SpeaksTheLanguageOfItsUser)
{
    m_environment.insert(m_environment.end(), {"LC_ALL=fr_FR.UTF-8", "LANGUAGE=es:de"});
    EXPECT_EQ(Run({"table"}).StyleIn("1 +10 +2 +0 +0x0  O_3"),
              "aspa, vacío, tamaño 10, #000000; línea continua, grosor 1, #000000");
    m_environment.back() = "LANGUAGE";
    const std::string nothing = Run({"list", File("odd.csv", "t,100%2\n1,2\n")}).Errors;
    EXPECT_NE(nothing.find("la colonne «\u00A0100%2\u00A0», elle est ignorée"), std::string::npos) << nothing;
}

TEST_F(Host, PlotsIntoAFileWithoutDisplayAndFonts)
{
    m_environment.push_back("FONTCONFIG_FILE=" + File("fonts.conf", "<fontconfig/>"));
    const std::string png = m_folder / "plot.png";
    const Result result = RunOnMonths({"--png", png, "--size", "900x700"}, "plot");
    EXPECT_EQ(std::pair(result.Status, result.Errors), std::pair(0, std::string{}));
    EXPECT_EQ(QImage{QString::fromStdString(png)}.size(), QSize(900, 700));
}

TEST_F(Host, PlotsIntoFilesOfEachKind)
{
    const auto plot = [this](const char* name, Words words) {
        const std::string path = m_folder / name;
        words.insert(words.end(), {"-o", path, "--size", "480x384"});
        EXPECT_EQ(RunOnMonths(words, "plot").Errors, "");
        return test::ReadWhole(path);
    };
    const std::string svg = plot("p.svg", {});
    EXPECT_NE(svg.find("viewBox=\"0 0 480 384\""), std::string::npos);
    EXPECT_NE(svg.find("width=\"127"), std::string::npos) << "mm";
    for (const std::string& color : Colors)
        EXPECT_NE(QString::fromStdString(svg).indexOf(color.c_str(), 0, Qt::CaseInsensitive), -1) << color;
    const std::string pdf = plot("p.pdf", {});
    EXPECT_NE(pdf.find("/MediaBox [0 0 360."), std::string::npos) << "points";
    EXPECT_GT(pdf.size(), 15000U) << "curves and texts";
    plot("p.png", {});
    const QImage png{QString::fromStdString(m_folder / "p.png")};
    EXPECT_EQ(png.size(), QSize(480, 384));
    EXPECT_NEAR(png.dotsPerMeterX(), 96 / 0.0254, 1);
    EXPECT_EQ(png.dotsPerMeterY(), png.dotsPerMeterX());
    EXPECT_EQ(png.pixelColor(0, 0), Qt::white);

    // With the permissions that the user's mask leaves, or those of the file before.
    const std::string path = m_folder / "p.png";
    chmod(path.c_str(), 0640);
    plot("p.png", {});
    struct stat status {
    };
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
    const std::string version = Run({"--version"}).Output;
    EXPECT_TRUE(version.starts_with("atlas-host ") && version.ends_with("\n")) << version;
    const Result nothing = Run({"-o", path, "plot", File("none.csv", "t,x\n1,2\n")});
    EXPECT_TRUE(nothing.Status == 1 && nothing.IsSaying("there is no curve to plot")) << nothing.Errors;
    EXPECT_EQ(test::ReadWhole(path).substr(1, 3), "PNG") << "the old picture";
    EXPECT_EQ(Run({"-o", "unused.svg", "--png", m_folder / "odd.name", "--size", "200x200", "plot", Month(0)})
                  .Status,
              0);
    EXPECT_FALSE(QImage(QString::fromStdString(m_folder / "odd.name")).isNull());
}

TEST_F(Host, ReportsWhatItCannotDo)
{
    for (const Words& command : {Words{"plot", Month(0)}, {"window"}, {"edit"}}) {
        const Result result = Run(command);
        EXPECT_EQ(result.Status, 1);
        EXPECT_TRUE(result.IsSaying("there is no display")) << command[0];
    }
    EXPECT_TRUE(RunOnMonths({"--png", "/dev/full"}, "plot").IsSaying("/dev/full cannot be written: "));
    const std::pair<Words, std::string_view> wrong[] = {
        {{"draw"}, "unknown command \"draw\""},
        {{"--size", "99x200", "plot", "a.csv"}, "from 100 to 8192 as in 1200x800, not \"99x200\""},
        {{"table", "-xyz"}, "unknown option \"-x\""},
        {{"--column", "32", "table"}, "0 to 31, not \"32\""},
        {{"--host", "..", "table"}, "\"..\" cannot be"}};
    for (const auto& [words, message] : wrong) {
        const Result result = Run(words);
        EXPECT_EQ(std::pair(result.Status, result.Output), std::pair(2, std::string{})) << message;
        EXPECT_TRUE(result.IsSaying(message)) << result.Errors;
    }
    const Result full = Run({"table"}, open("/dev/full", O_WRONLY | O_CLOEXEC));
    EXPECT_EQ(std::pair(full.Status, full.Errors),
              std::pair(1, std::string{"atlas-host: the output cannot be written\n"}));
    EXPECT_TRUE(Run({"--help"}).Output.starts_with("Usage: atlas-host "));
    EXPECT_TRUE(
        Run({"list", File("open.csv", "t,\"Wind\n")}).IsSaying(":1: a quotation mark is never closed"));
    fs::create_directories(m_prefix.Native("ProgramData/Halvorn/AirLab"));
    test::WriteWhole(m_prefix.Native("ProgramData/Halvorn/AirLab/Style.Atlas"), "damaged");
    m_environment.emplace_back("QT_QPA_PLATFORM=offscreen");
    EXPECT_EQ(Run({"table"}).Errors, "Error: Cannot load style atlas.\n") << "no window";
    m_environment.pop_back();
    m_environment.emplace_back("DISPLAY=:987");
    const Result nowhere = Run({"window"});
    EXPECT_TRUE(nowhere.Status == 1 && nowhere.IsSaying("could not connect to display :987"));
}

TEST_F(Host, ShowsItsWindowUntilItIsClosed)
{
    m_environment.emplace_back("QT_QPA_PLATFORM=offscreen");
    constexpr int endedByTimeout = 124;
    for (const Words& command : {Words{"plot", Month(0)}, {"window"}}) {
        Words words{"timeout", "1", ATLAS_HOST};
        words.insert(words.end(), command.begin(), command.end());
        EXPECT_EQ(test::Run(words, m_environment).Status, endedByTimeout) << command[0];
    }
}

TEST_F(Host, ShowsStylesWithoutTheLayoutTool)
{
    fs::create_directory(m_folder / "bin");
    fs::copy_file(ATLAS_HOST, m_folder / "bin/host");
    fs::create_directory_symlink(fs::path{ATLAS_HOST}.parent_path().parent_path() / "lib", m_folder / "lib");
    m_program = m_folder / "bin/host";
    constexpr std::string_view reason = "atlas-layout cannot be started: No such file or directory\n";
    const Result styles = RunOnMonths({});
    EXPECT_EQ(styles.Errors, "atlas-host: " + std::string{reason});
    EXPECT_EQ(styles.StyleIn("0  Ozone"), StyleText(1, 0));
    for (const char* const command : {"layout", "prepare"}) {
        const Result failed = Run({command});
        EXPECT_EQ(std::pair(failed.Status, failed.Errors), std::pair(1, styles.Errors));
    }
}

TEST_F(Host, MakesTheFolderOfItsLayout)
{
    Run({"--host", "Prüfstand 7", "table"});
    EXPECT_TRUE(fs::is_directory(m_prefix.Native("ProgramData/Halvorn/Prüfstand 7")));
    m_environment.emplace_back("STYLEATLAS_PREFIX=" + File("occupied", ""));
    const Result occupied = RunOnMonths({});
    EXPECT_TRUE(occupied.IsSaying("the folder for the layout cannot be made")) << occupied.Errors;
    EXPECT_EQ(occupied.StyleIn("0  Ozone"), StyleText(1, 0));
    m_environment.insert(m_environment.end(),
                         {"STYLEATLAS_PREFIX", "XDG_DATA_HOME=relative", "HOME=" + m_prefix.Path().string()});
    Run({"table"});
    const fs::path made = m_prefix.Path() / ".local/share/styleatlas";
    EXPECT_TRUE(fs::exists(made / "drive_c/ProgramData/Halvorn/AirLab"));
    EXPECT_EQ(fs::status(made).permissions(), fs::perms::owner_all);
}

} // namespace
