// The whole road on a display with a window manager: from the user's clicks in the sample host to the layout
// file.
#include "support/ChildProcess.h"
#include "support/Process.h"
#include "support/TempPrefix.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QThread>
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>

namespace
{

constexpr int patience = 10000; // milliseconds for what is waited for
constexpr int pollTime = 20;
constexpr QSize atlasUnits(508, 347); // of the dialogs, as their resources have them; so are places in them
constexpr QSize curveUnits(317, 198);
constexpr QPoint treeCorner(19, 27);
constexpr QPoint shapeButton(100, 28);
constexpr QPoint colorButton(165, 27);
constexpr QPoint okButton(276, 14);
constexpr int treeColumn = 150; // pixels
constexpr int fileColumn = 60;
constexpr const char* files[] = {DATA_FOLDER "/airquality-1973-05.csv",
                                 DATA_FOLDER "/airquality-1973-06.csv"};
constexpr std::ptrdiff_t allRows = 196; // of the catalogue
constexpr std::size_t folding = 5;      // the first row that folds: with its two levels, 13 rows

using Words = std::vector<std::string>;

struct Place {
    WId Window;
    QPoint Point;
};

// Where the user clicks for an edit, and the colour that is chosen then: column and row in the popup.
enum Spot { nowhere, cell, label, heading, contextMenu };
struct Gesture {
    Spot Where = nowhere;
    std::size_t Row = 0;
    int Column = 0;
    QPoint Color;
    bool Folds = false; // the row, before
};

// What changed in the layout file: rows, runs of neighbouring records that did so alike, and the first new
// style.
using Change = std::tuple<std::ptrdiff_t, std::ptrdiff_t, std::string>;

std::string Tool(Words words)
{
    words.insert(words.begin(), "xdotool");
    return test::Run(words, {}).Output;
}

void Until(const std::function<bool()>& condition, const std::string& what)
{
    for (int waited = 0; !condition(); waited += pollTime) {
        if (waited > patience)
            throw std::runtime_error("waited in vain for " + what);
        QThread::msleep(pollTime);
    }
}

std::vector<WId> Windows(const char* which = "--class", const std::string& pattern = "^atlas-host$")
{
    std::istringstream lines(Tool({"search", "--onlyvisible", which, pattern}));
    return {std::istream_iterator<WId>(lines), {}};
}

WId WaitFor(const std::string& title)
{
    std::vector<WId> found;
    Until([&] { return !(found = Windows("--name", title)).empty(); }, title);
    return found.back();
}

void WaitForEnd(WId window)
{
    Until([&] { return std::ranges::count(Windows(), window) == 0; }, "the end of a window");
}

QImage Picture(WId window)
{
    return QGuiApplication::primaryScreen()->grabWindow(window).toImage();
}

Place At(WId window, QSize units, QPoint point)
{
    const QSize size = Picture(window).size();
    return {window, {point.x() * size.width() / units.width(), point.y() * size.height() / units.height()}};
}

void Click(const Place& place, const char* button = "1", const char* times = "1")
{
    const auto [x, y] = std::pair(std::to_string(place.Point.x()), std::to_string(place.Point.y()));
    Tool({"mousemove", "--window", std::to_string(place.Window), x, y, "click", "--repeat", times, button});
}

// Keys go to the window that has the focus, so that has to be the one that the user looks at.
void Press(WId window, const char* key)
{
    Until([&] { return Tool({"getwindowfocus"}) == std::to_string(window) + "\n"; }, "the focus");
    Tool({"key", key});
}

// Does what brings a popup, then what is to be done with it, which ends it.
void WithPopup(const std::function<void()>& open, const std::function<void(WId)>& use)
{
    const std::vector<WId> before = Windows();
    std::vector<WId> now;
    open();
    const auto isNew = [&](WId window) { return std::ranges::count(before, window) == 0; };
    Until([&] { return std::ranges::any_of(now = Windows(), isNew); }, "a popup");
    const WId popup = *std::ranges::find_if(now, isNew);
    use(popup);
    WaitForEnd(popup);
}

// The next of a list, and the key that ends the list.
std::function<void(WId)> DownAnd(const char* last)
{
    return [last](WId) { Tool({"key", "Down", last}); };
}

class Road : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        static int count = 1;
        static char name[] = "road_test";
        static char* words[] = {name, nullptr};
        static const QGuiApplication application(count, words);
    }

    void SetUp() override
    {
        m_main = WaitFor("^Curves");
        WithPopup([this] { Press(m_main, "alt+s"); }, [](WId) { Tool({"key", "c"}); });
        m_atlas = WaitFor("style atlas$");
        Click(At(m_atlas, atlasUnits, {468, 23})); // OK: the file is there from now on
        WaitForEnd(m_atlas);
        CopyFile();
    }

    void TearDown() override
    {
        for (const WId window : HasFailure() ? Windows() : std::vector<WId>())
            Picture(window).save("road_test-" + QString::number(window) + ".png");
    }

    void OpenAtlas()
    {
        Press(m_main, "ctrl+e");
        m_atlas = WaitFor("style atlas$");
        Until([this] { return FindRows(); }, "the rows of the tree");
    }

    // White stripes between the lines of the grid, seen where no cell has a picture. A window that isn't
    // painted yet shows what is behind it, which can have stripes too, but not all at the same distance.
    bool FindRows()
    {
        constexpr int leastHeight = 10;
        const QImage picture = Picture(m_atlas);
        m_tree = At(m_atlas, atlasUnits, treeCorner).Point;
        m_rows.clear();
        for (int y = m_tree.y(), white = 0; y < picture.height(); ++y) {
            const bool isWhite = picture.pixelColor(m_tree.x() + treeColumn + 3, y) == Qt::white;
            if (!isWhite && white >= leastHeight)
                m_rows.push_back(y - white / 2);
            white = isWhite ? white + 1 : 0;
        }
        std::size_t even = 2;
        while (even < m_rows.size() && m_rows[even] - m_rows[even - 1] == m_rows[1] - m_rows[0])
            ++even;
        return even > 2 * folding;
    }

    // Gives the next shape, and the colour at a place of the popup, to the styles that are open for editing;
    // but first gives up a choice in each list.
    void ChangeStyle(QPoint color)
    {
        const WId dialog = WaitFor("^Layout");
        for (const QPoint button : {shapeButton, colorButton})
            WithPopup([&] { Click(At(dialog, curveUnits, button)); }, DownAnd("Escape"));
        WithPopup([&] { Click(At(dialog, curveUnits, shapeButton)); }, DownAnd("Return"));
        const auto choose = [&](WId popup) { Click({popup, color * 18 + QPoint(11, 11)}); };
        WithPopup([&] { Click(At(dialog, curveUnits, colorButton)); }, choose);
        Click(At(dialog, curveUnits, okButton));
        WaitForEnd(dialog);
    }
    void Edit(const Gesture& gesture)
    {
        const auto place = [&](int x) { return Place{m_atlas, {m_tree.x() + x, m_rows.at(gesture.Row)}}; };
        const Place inColumn = place(treeColumn + fileColumn * gesture.Column + fileColumn / 2);
        if (gesture.Folds)
            Click(place(9));
        if (gesture.Where == contextMenu) // the first rule
            return WithPopup([&] { Click(inColumn, "3"); }, DownAnd("Return"));
        if (gesture.Where == nowhere)
            return;
        if (gesture.Where == heading)
            Click({m_atlas, {inColumn.Point.x(), m_tree.y() + 8}}, "1", "2");
        else
            Click(gesture.Where == cell ? inColumn : place(30), "1", "2");
        ChangeStyle(gesture.Color);
    }
    std::string Layout() const { return m_prefix.Native("ProgramData/Halvorn/AirLab/Style.Atlas"); }
    std::string Copy() const { return m_prefix.Path() / "copy"; }
    void CopyFile() { test::WriteWhole(Copy(), test::ReadWhole(Layout())); }
    Change ChangeSinceCopy() const
    {
        const std::string added = "+  file column ";
        std::istringstream lines(test::Run({ATLAS_HOST, "layout", "diff", Copy(), Layout()}, {}).Output);
        Change change;
        auto& [rows, runs, first] = change;
        for (std::string line; std::getline(lines, line);) {
            rows += line.starts_with(" ") ? 1 : 0;
            if (line.starts_with(added) && runs++ == 0)
                first = line.substr(added.size());
        }
        return change;
    }

    const test::TempPrefix m_prefix;
    test::ChildProcess m_manager{
        [] { return execlp("matchbox-window-manager", "matchbox-window-manager", nullptr); }};
    test::ChildProcess m_host{
        [] { return execl(ATLAS_HOST, ATLAS_HOST, "window", files[0], files[1], nullptr); }};
    WId m_main = 0;
    WId m_atlas = 0;
    QPoint m_tree;           // left and top of the headings, in the dialog
    std::vector<int> m_rows; // the middle of each row, in the dialog
};

TEST_F(Road, LeadsFromTheClickToTheFile)
{
    const std::string line = "; solid line, width 1, #";
    const struct {
        Gesture Done;
        Change Expected;
        bool IsListed; // whether the files have a curve of the first new style
    } steps[] = {
        {{}, {}, true},
        {{cell, 1, 0, {2, 1}},
         {1, 1, "0  triangle 2, empty with dot, size 10, #8B8B00" + line + "000000"},
         true},
        {{heading, 0, 1, {6, 1}},
         {allRows, allRows, "1  cross, empty, size 10, #7B7BC0" + line + "A52A00"},
         true},
        {{label, folding, 0, {0, 2}, true},
         {13, 416, "0  cross, empty, size 10, #FF0000" + line + "000000"},
         false},
        {{cell, folding, 2, {2, 2}, true},
         {7, 7, "2  triangle, empty, size 10, #32CD32" + line + "004040"},
         false},
        {{contextMenu, 3, 0, {}}, {allRows, 6006, "0  no symbol" + line + "000000"}, true},
    };
    for (const auto& step : steps) {
        OpenAtlas();
        Edit(step.Done);
        Press(m_atlas, "Return");
        WaitForEnd(m_atlas);
        const Change change = ChangeSinceCopy();
        EXPECT_EQ(change, step.Expected);
        const std::string first = std::get<std::string>(change);
        const std::string style = first.substr(std::min<std::size_t>(3, first.size()));
        const std::string listed = test::Run({ATLAS_HOST, "list", files[0], files[1]}, {}).Output;
        EXPECT_EQ(listed.find(style) != std::string::npos, step.IsListed) << first;
        CopyFile();
    }
    Press(m_main, "ctrl+q");
    EXPECT_EQ(m_host.Wait(), 0);
}

} // namespace
