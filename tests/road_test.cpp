// The whole road on a display with a window manager: from the user's clicks to the layout file.
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
constexpr std::size_t stripes = 5; // rows that are enough to tell the tree from what is behind the window
constexpr const char* files[] = {DATA_FOLDER "/airquality-1973-05.csv",
                                 DATA_FOLDER "/airquality-1973-06.csv"};

struct Place {
    WId Window;
    QPoint Point;
};

std::string Tool(std::vector<std::string> words)
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
        // The manager is at work when it does what it is asked for. Windows shown before are lost to it.
        Until([] { return Tool({"set_desktop", "1", "get_desktop"}) == "1\n"; }, "the window manager");
        m_host.emplace([] { return execl(ATLAS_HOST, ATLAS_HOST, "window", files[0], files[1], nullptr); });
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

    // White stripes at even distances. A window that isn't painted yet shows what is behind it.
    bool FindRows()
    {
        constexpr int minHeight = 10;
        const QImage picture = Picture(m_atlas);
        const QPoint corner = At(m_atlas, atlasUnits, treeCorner).Point;
        m_cells.clear();
        for (int y = corner.y(), white = 0; y < picture.height(); ++y) {
            const bool isWhite = picture.pixelColor(corner.x() + treeColumn + 3, y) == Qt::white;
            if (!isWhite && white >= minHeight)
                m_cells.emplace_back(corner.x() + treeColumn + fileColumn / 2, y - white / 2);
            white = isWhite ? white + 1 : 0;
        }
        std::size_t even = 2;
        while (even < m_cells.size() && m_cells[even] - m_cells[even - 1] == m_cells[1] - m_cells[0])
            ++even;
        return even > stripes;
    }

    // Gives up a choice in each list; then gives the next shape, and a colour of the popup, to a cell.
    void EditCell(std::size_t row)
    {
        Click({m_atlas, m_cells.at(row)}, "1", "2");
        const WId dialog = WaitFor("^Layout");
        for (const QPoint button : {shapeButton, colorButton})
            WithPopup([&] { Click(At(dialog, curveUnits, button)); }, DownAnd("Escape"));
        WithPopup([&] { Click(At(dialog, curveUnits, shapeButton)); }, DownAnd("Return"));
        WithPopup([&] { Click(At(dialog, curveUnits, colorButton)); }, DownAnd("alt+F4"));
        const auto chooseTeal = [dialog](WId popup) {
            Tool({"windowactivate", "--sync", std::to_string(dialog)}); // behind the popup, that is
            Until([&] { return Picture(popup).pixelColor(47, 29) == QColor(0x8B8B00); }, "the popup's cell");
            Click({popup, {47, 29}});
        };
        WithPopup([&] { Click(At(dialog, curveUnits, colorButton)); }, chooseTeal);
        Click(At(dialog, curveUnits, okButton));
        WaitForEnd(dialog);
    }
    void ApplyFirstRule() const
    {
        WithPopup([&] { Click({m_atlas, m_cells.at(0)}, "3"); }, DownAnd("Return"));
    }
    void DragFile(QPoint from, QPoint to) const
    {
        const QPoint begin = from + QPoint{0, 12};
        for (const QPoint point : {from, begin, (begin + to) / 2, to}) {
            Tool({"mousemove", "--window", std::to_string(m_main), std::to_string(point.x()),
                  std::to_string(point.y())});
            if (point == from)
                Tool({"mousedown", "1"});
            QThread::msleep(pollTime);
        }
        Tool({"mouseup", "1"});
    }
    QImage Curves() const
    {
        constexpr int listWidth = 260;
        const QImage window = Picture(m_main);
        return window.copy(listWidth, 0, window.width() - listWidth, window.height() - 60);
    }
    std::string Layout() const { return m_prefix.Native("ProgramData/Halvorn/AirLab/Style.Atlas"); }
    std::string Copy() const { return m_prefix.Path() / "copy"; }
    void CopyFile() { test::WriteWhole(Copy(), test::ReadWhole(Layout())); }
    // How many rows have changed, in how many runs of records that changed alike, and the first new style.
    std::string ChangeSinceCopy() const
    {
        const std::string added = "+  file column ";
        std::istringstream lines(test::Run({ATLAS_HOST, "layout", "diff", Copy(), Layout()}, {}).Output);
        int rows = 0;
        int runs = 0;
        std::string first;
        for (std::string line; std::getline(lines, line);) {
            rows += line.starts_with(" ") ? 1 : 0;
            if (line.starts_with(added) && runs++ == 0)
                first = line.substr(added.size());
        }
        return std::to_string(rows) + " " + std::to_string(runs) + " " + first;
    }

    const test::TempPrefix m_prefix;
    test::ChildProcess m_manager{[] { return execlp("openbox", "openbox", "--sm-disable", nullptr); }};
    std::optional<test::ChildProcess> m_host;
    WId m_main = 0;
    WId m_atlas = 0;
    std::vector<QPoint> m_cells; // the middle of each row's first cell, in the dialog
};

TEST_F(Road, LeadsFromTheClickToTheFile)
{
    const std::string line = "; solid line, width 1, #000000";
    const std::tuple<std::function<void()>, std::string, std::string> steps[] = {
        {[this] { EditCell(1); }, "1 1 0  ", "triangle 2, empty with dot, size 10, #8B8B00" + line},
        {[this] { ApplyFirstRule(); }, "196 6068 0  ", "no symbol" + line}};
    for (const auto& [edit, extent, style] : steps) {
        OpenAtlas();
        edit();
        Press(m_atlas, "Return");
        WaitForEnd(m_atlas);
        EXPECT_EQ(ChangeSinceCopy(), extent + style);
        const std::string listed = test::Run({ATLAS_HOST, "list", files[0], files[1]}, {}).Output;
        EXPECT_NE(listed.find(style), std::string::npos) << listed;
        CopyFile();
    }
    // The file's place in the list decides the style, and the user drags it there.
    const QImage before = Curves();
    DragFile({60, 28}, {60, 150});
    Until([&] { return Curves() != before; }, "the styles of the new order");
    DragFile({60, 42}, {60, 21});
    Until([&] { return Curves() == before; }, "the styles of the old order");
    Press(m_main, "ctrl+q");
    EXPECT_EQ(m_host->Wait(), 0);
}

} // namespace
