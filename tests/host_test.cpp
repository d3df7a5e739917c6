// The sample host, run as a user runs it.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <pty.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace
{

namespace fs = std::filesystem;

using Words = std::vector<std::string>;

constexpr std::array Shapes = {"no symbol", "cross",    "triangle", "triangle 2", "square",
                               "plus",      "asterisk", "diamond",  "circle",     "point"};
constexpr std::array Fills = {"filled", "empty", "empty with dot"};
constexpr std::array Colors = {"#000000", "#A52A00", "#004040", "#005500", "#00005E"};
constexpr std::array Curves = {"Ozone", "Solar", "Wind", "Temp"};

std::string StyleText(std::size_t symbol, std::size_t color)
{
    const std::string shown = Shapes[symbol % Shapes.size()];
    const std::string details =
        std::string{", "} + Fills[symbol % Fills.size()] + ", size 10, " + Colors[color];
    return (symbol % Shapes.size() == 0 ? shown : shown + details) + "; solid line, width 1, " +
           Colors[color];
}

std::string ReadAll(const fs::path& path)
{
    std::ifstream file{path, std::ios::binary};
    return {std::istreambuf_iterator<char>{file}, {}};
}

// The cells of a printed line. Two blanks or more stand between columns, and never inside a cell.
Words Cells(std::string_view line)
{
    Words cells;
    while (!(line = line.substr(std::min(line.find_first_not_of(' '), line.size()))).empty()) {
        const std::size_t end = std::min(line.find("  "), line.size());
        cells.emplace_back(line.substr(0, end));
        line.remove_prefix(end);
    }
    return cells;
}

struct Result {
    int status = -1; // -1 where the program did not end by itself
    std::string out;
    std::string err;

    // The line that begins with these cells.
    Words LineOf(const Words& first) const
    {
        std::istringstream lines{out};
        for (std::string line; std::getline(lines, line);) {
            Words cells = Cells(line);
            if (cells.size() >= first.size() && std::equal(first.begin(), first.end(), cells.begin()))
                return cells;
        }
        return {};
    }

    bool IsSaying(std::string_view text) const { return err.find(text) != std::string::npos; }
};

int ExitStatus(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

[[noreturn]] void Execute(const Words& words)
{
    std::vector<char*> arguments = {const_cast<char*>(ATLAS_HOST)};
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execv(ATLAS_HOST, arguments.data());
    _exit(127);
}

class Host : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string folder = (fs::temp_directory_path() / "atlas-host-XXXXXX").string();
        ASSERT_NE(mkdtemp(folder.data()), nullptr);
        m_folder = folder;
        for (const char* const variable :
             {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "MENSURA_CATALOGUE", "NO_COLOR", "COLORTERM"})
            unsetenv(variable);
        setenv("STYLEATLAS_PREFIX", (m_folder / "prefix").c_str(), 1);
        setenv("TERM", "xterm-256color", 1);
    }

    void TearDown() override
    {
        unsetenv("MENSURA_CATALOGUE");
        fs::remove_all(m_folder);
    }

    Result Run(const Words& words, const char* output = nullptr) const
    {
        const fs::path out = output != nullptr ? output : m_folder / "out";
        const fs::path err = m_folder / "err";
        const pid_t child = fork();
        if (child == 0) {
            dup2(open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
            dup2(open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
            alarm(60);
            Execute(words);
        }
        const int status = ExitStatus(child);
        return {status, output != nullptr ? "" : ReadAll(out), ReadAll(err)};
    }

    // What the program prints on a terminal.
    static std::string RunOnTerminal(const Words& words)
    {
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
        if (child == 0) {
            alarm(60);
            Execute(words);
        }
        std::string shown;
        std::array<char, 4096> buffer;
        for (ssize_t count = 0; (count = read(terminal, buffer.data(), buffer.size())) > 0;)
            shown.append(buffer.data(), static_cast<std::size_t>(count));
        close(terminal);
        EXPECT_EQ(ExitStatus(child), 0);
        return shown;
    }

    std::string File(const std::string& name, std::string_view content) const
    {
        const fs::path path = m_folder / name;
        std::ofstream{path, std::ios::binary} << content;
        return path.string();
    }

    static Words Months()
    {
        Words paths;
        for (const char month : std::string_view{"56789"})
            paths.push_back(std::string{DATA_FOLDER "/airquality-1973-0"} + month + ".csv");
        return paths;
    }

    Result ListMonths(Words words) const
    {
        words.emplace_back("list");
        std::ranges::copy(Months(), std::back_inserter(words));
        return Run(words);
    }

    fs::path m_folder;
};

TEST_F(Host, TellsTheQuantityBySymbolAndTheFileByColor)
{
    for (const Words& options : {Words{}, Words{"--host", "Quorvia"}, Words{"--host=Tandrell 2"}}) {
        const Result result = ListMonths(options);
        ASSERT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.err, "");
        for (std::size_t file = 0; file < Months().size(); ++file) {
            for (std::size_t curve = 0; curve < Curves.size(); ++curve) {
                const Words line = result.LineOf({std::to_string(file), Curves[curve]});
                ASSERT_EQ(line.size(), 7U) << result.out;
                EXPECT_EQ(line.back(), StyleText(curve + 1, file));
            }
        }
    }
}

TEST_F(Host, TellsTheFileBySymbolAndTheQuantityByColorForTandrell)
{
    for (const char* const name : {"Tandrell", "tANDRELL"}) {
        const Result result = ListMonths({"--host", name});
        ASSERT_EQ(result.status, 0) << result.err;
        for (std::size_t file = 0; file < Months().size(); ++file) {
            for (std::size_t curve = 0; curve < Curves.size(); ++curve) {
                const Words line = result.LineOf({std::to_string(file), Curves[curve]});
                ASSERT_EQ(line.size(), 7U) << result.out;
                EXPECT_EQ(line.back(), StyleText(file, curve));
            }
        }
    }
}

TEST_F(Host, CountsTheReadings)
{
    const Result result = ListMonths({});
    const std::map<std::string, std::pair<std::string, std::string>> expected = {
        {"Ozone", {"O_3", "Ozone, mean of 13:00 to 15:00, ppb"}},
        {"Solar", {"H_sol", "Solar radiation, 400 to 770 nm, 08:00 to 12:00, langley"}},
        {"Wind", {"v_wind", "Wind speed, mean of 07:00 and 10:00, mph"}},
        {"Temp", {"Temp", "Temperature of the day, maximum, °F"}},
    };
    std::map<std::string, int> missing;
    for (const auto& [curve, texts] : expected) {
        int readings = 0;
        for (std::size_t file = 0; file < Months().size(); ++file) {
            const Words line = result.LineOf({std::to_string(file), curve});
            ASSERT_EQ(line.size(), 7U) << result.out;
            EXPECT_EQ(std::pair(line[2], line[3]), texts);
            readings += std::stoi(line[4]);
            missing[curve] += std::stoi(line[5]);
        }
        EXPECT_EQ(readings + missing[curve], 153) << curve;
    }
    EXPECT_EQ(missing, (std::map<std::string, int>{{"Ozone", 37}, {"Solar", 7}, {"Temp", 0}, {"Wind", 0}}));
}

TEST_F(Host, ShowsTheWholeTableOfAFileColumn)
{
    const Result first = Run({"table"});
    ASSERT_EQ(first.status, 0) << first.err;
    EXPECT_EQ(std::ranges::count(first.out, '\n'), 172);
    EXPECT_EQ(first.LineOf({"1", "10", "2", "0", "0x0", "O_3"}).back(), StyleText(1, 0));
    EXPECT_EQ(first.LineOf({"4", "30", "3", "1", "0x2", "U_rms L1"}).back(), StyleText(8, 0));
    EXPECT_EQ(first.LineOf({"5", "20", "11", "0", "0x1", "ΔT"}).back(), StyleText(4, 0));
    const Result last = Run({"--column", "31", "table"});
    EXPECT_TRUE(last.LineOf({"1", "10"}).back().ends_with("width 1, #C0C0C0")) << last.out;

    // The last column begins at one place of the screen, whatever letters stand before it.
    std::istringstream lines{first.out};
    std::string title;
    std::getline(lines, title);
    for (std::string line; std::getline(lines, line);) {
        std::erase_if(line, [](char c) { return (c & 0xC0) == 0x80; });
        EXPECT_EQ(line.substr(title.find("Style") - 2, 2), "  ") << line;
        EXPECT_NE(line.substr(title.find("Style"), 1), " ") << line;
    }
}

TEST_F(Host, ReadsFilesOfAllSorts)
{
    const std::string path =
        File("sorts.csv", "\xEF\xBB\xBF\"Date\",\"u_RMS l1\" ,voltage,\"Wi\"\"nd\",\x1b[2J\r\n"
                          "1,+1.5,-2e3,,\r\n"
                          "\r\n"
                          "\"2\n,\",\" 7 \", x\x1b ,0,1\r\n"
                          "3,1,2,3,4,5\n"
                          "4,inf\n"
                          "5,1;5,+-1,\"2");
    const Result result = Run({"list", path});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.LineOf({"0", "5"}), (Words{"0", "5", path}));
    const Words current = result.LineOf({"0", "u_RMS l1", "U_rms L1"});
    ASSERT_EQ(current.size(), 7U) << result.out;
    EXPECT_EQ(current[4] + " and " + current[5], "3 and 2");
    const Words voltage = result.LineOf({"0", "voltage", "U_rms"});
    ASSERT_EQ(voltage.size(), 7U) << result.out;
    EXPECT_EQ(voltage[4] + " and " + voltage[5], "2 and 3");
    const std::string said = "atlas-host: " + path;
    EXPECT_EQ(result.err, said + ":4: \"x\uFFFD\" in column voltage is not a number\n" + said +
                              ":6: the line has 6 fields, the head line 5\n" + said +
                              ":7: \"inf\" in column u_RMS l1 is not a number\n" + said +
                              ":8: a quotation mark is never closed\n" + said +
                              ":8: \"1;5\" in column u_RMS l1 is not a number\n" + said +
                              ":8: \"+-1\" in column voltage is not a number\n" + said +
                              ": no quantity fits the column \"Wi\"nd\", it is left out\n" + said +
                              ": no quantity fits the column \"\uFFFD[2J\", it is left out\n");
    EXPECT_EQ(result.out.find('\x1b'), std::string::npos);

    const Result headAlone = Run({"list", File("head.csv", "Date,Wind")});
    EXPECT_EQ(headAlone.status, 0);
    EXPECT_EQ(headAlone.LineOf({"0", "Wind"}).size(), 7U);
}

TEST_F(Host, TellsWhichFileCannotBeReadAndShowsTheOthers)
{
    const std::string huge = File("huge.csv", "Date,Wind\n1,2\n");
    fs::resize_file(huge, std::uintmax_t{1} << 40);
    const std::string pipe = (m_folder / "pipe.csv").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::pair<std::string, std::string_view> bad[] = {
        {(m_folder / "none.csv").string(), "No such file or directory"},
        {m_folder.string(), "not a regular file"},
        {pipe, "not a regular file"},
        {huge, "larger than 64 MiB"},
        {File("empty.csv", "\n\n"), "the file is empty"},
        {File("single.csv", "Date\n1\n2\n"), "no column of data beside the first"},
        {File("wide.csv", std::string(5000, ',')), "more than 4096 columns"},
    };
    for (const auto& [path, reason] : bad) {
        const Result result = Run({"list", Months()[0], path, Months()[1]});
        EXPECT_EQ(result.status, 1) << path;
        EXPECT_EQ(result.err, "atlas-host: " + path + ": " + std::string{reason} + "\n");
        EXPECT_EQ(result.LineOf({"0", "Wind"}).back(), StyleText(3, 0)) << path;
        EXPECT_EQ(result.LineOf({"2", "Wind"}).back(), StyleText(3, 2)) << path;
    }
    std::string noise = "Date,Wind\n";
    for (int i = 0; i < 1000; ++i)
        noise += "1,x\n";
    EXPECT_EQ(std::ranges::count(Run({"list", File("noise.csv", noise)}).err, '\n'), 21);
}

TEST_F(Host, ShowsNoStyleWhereThereIsNone)
{
    Words words{"list"};
    words.insert(words.end(), 33, Months()[0]);
    const Result many = Run(words);
    EXPECT_EQ(many.status, 0);
    EXPECT_EQ(many.LineOf({"31", "Temp"}).back(),
              "square, empty, size 10, #C0C0C0; solid line, width 1, #C0C0C0");
    EXPECT_EQ(many.LineOf({"32", "Temp"}).back(), "no style");

    setenv("MENSURA_CATALOGUE", (m_folder / "none").c_str(), 1);
    const Result list = ListMonths({});
    EXPECT_EQ(list.status, 0);
    EXPECT_TRUE(list.IsSaying("no quantity fits the column \"Ozone\"")) << list.err;
    const Result table = Run({"table"});
    EXPECT_EQ(table.status, 0);
    EXPECT_EQ(table.out, "The unit library has no quantities.\n");
}

TEST_F(Host, UnderstandsItsCommandLine)
{
    const std::pair<Words, std::string_view> wrong[] = {
        {{}, "a command is missing"},
        {{"draw"}, "unknown command \"draw\""},
        {{"list"}, "at least one file"},
        {{"table", "a.csv"}, "takes no files"},
        {{"--colour", "table"}, "unknown option \"--colour\""},
        {{"table", "-xyz"}, "unknown option \"-x\""},
        {{"--host"}, "\"--host\" needs a value"},
        {{"--column", "32", "table"}, "0 to 31, not \"32\""},
        {{"--column=-1", "table"}, "0 to 31, not \"-1\""},
        {{"--column", "1x", "table"}, "0 to 31, not \"1x\""},
        {{"--host", "../up", "table"}, "\"../up\" cannot be"},
        {{"--host", "..", "table"}, "\"..\" cannot be"},
        {{"--host", "C:", "table"}, "\"C:\" cannot be"},
        {{"--host", std::string(256, 'x'), "table"}, "cannot be the name of a folder"},
    };
    for (const auto& [words, message] : wrong) {
        const Result result = Run(words);
        EXPECT_EQ(result.status, 2) << message;
        EXPECT_EQ(result.out, "") << message;
        EXPECT_TRUE(result.IsSaying(message)) << result.err;
    }
    EXPECT_TRUE(Run({"--help"}).out.starts_with("Usage: atlas-host"));
    EXPECT_TRUE(Run({"--version"}).out.starts_with("atlas-host "));
    EXPECT_FALSE(fs::exists(m_folder / "prefix")) << "nothing of this needs a folder";
    EXPECT_EQ(Run({"table"}, "/dev/full").status, 1);
}

TEST_F(Host, MakesTheFolderOfItsLayout)
{
    const fs::path below = "drive_c/ProgramData/Halvorn";
    EXPECT_EQ(Run({"--host", "Prüfstand 7", "table"}).status, 0);
    EXPECT_TRUE(fs::is_directory(m_folder / "prefix" / below / "Prüfstand 7"));
    unsetenv("STYLEATLAS_PREFIX");
    setenv("XDG_DATA_HOME", (m_folder / "data").c_str(), 1);
    EXPECT_EQ(Run({"table"}).status, 0);
    unsetenv("XDG_DATA_HOME");
    EXPECT_TRUE(fs::is_directory(m_folder / "data/styleatlas" / below / "AirLab"));

    setenv("STYLEATLAS_PREFIX", File("occupied", "").c_str(), 1);
    const Result occupied = ListMonths({});
    EXPECT_EQ(occupied.status, 0);
    EXPECT_TRUE(occupied.IsSaying("the folder for the layout cannot be made")) << occupied.err;
    EXPECT_EQ(occupied.LineOf({"0", "Ozone"}).back(), StyleText(1, 0));
}

TEST_F(Host, ShowsColorsOnATerminalAlone)
{
    const Words words = {"list", Months()[0], Months()[1]};
    EXPECT_EQ(Run(words).out.find('\x1b'), std::string::npos);
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0)
        GTEST_SKIP() << "this system has no pseudo-terminals";
    close(terminal);
    EXPECT_NE(RunOnTerminal(words).find("\x1b[48;5;124m  \x1b[48;5;124m  \x1b[0m cross, empty"),
              std::string::npos);
    setenv("COLORTERM", "truecolor", 1);
    EXPECT_NE(RunOnTerminal(words).find("\x1b[48;2;165;42;0m  \x1b[48;2;165;42;0m  \x1b[0m cross"),
              std::string::npos);
    setenv("NO_COLOR", "1", 1);
    EXPECT_EQ(RunOnTerminal(words).find('\x1b'), std::string::npos);
    unsetenv("NO_COLOR");
    setenv("TERM", "dumb", 1);
    EXPECT_EQ(RunOnTerminal(words).find('\x1b'), std::string::npos);
}

} // namespace
