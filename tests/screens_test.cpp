// The dialog on screens of several scales, from one to the next.
#include "support/AtlasDialog.h"
#include "support/TempPrefix.h"

#include <QBackingStore>
#include <QScreen>
#include <QWindow>
#include <controls/ColorPopup.h>
#include <random>

namespace
{

constexpr int screenCount = 6;
constexpr int screenWidth = 3000;

// Side by side. The platform reads them when the application is made.
void SetScreens()
{
    static const test::TempPrefix folder;
    const std::string path = folder.MakeFolder() / "screens.json";
    std::ofstream file(path);
    file << R"({"screens": [)";
    for (int i = 0; i < screenCount; ++i)
        file << (i > 0 ? "," : "") << R"({"y": 0, "height": 2000, "width": )" << screenWidth << R"(, "x": )"
             << i * screenWidth << '}';
    file << "]}";
    setenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + path).c_str(), 1);
    setenv("QT_SCREEN_SCALE_FACTORS", "1;1.25;1.5;1.75;2;3", 1);
}
[[maybe_unused]] const bool areSet = (SetScreens(), true);

// A window as it stands on the screen, in the screen's pixels.
QImage Shown(const CWnd& window)
{
    test::Settle();
    return dynamic_cast<QImage&>(*test::WidgetOf(window).backingStore()->paintDevice()).copy();
}

// How many squares of two pixels aren't of one colour: none in a picture of doubled pixels.
int FineSquares(const QImage& image, const QRect& place)
{
    int count = 0;
    for (int y = place.top() / 2 * 2; y < place.bottom(); y += 2) {
        for (int x = place.left() / 2 * 2; x < place.right(); x += 2) {
            const QRgb first = image.pixel(x, y);
            count += first != image.pixel(x + 1, y) || first != image.pixel(x, y + 1) ? 1 : 0;
        }
    }
    return count;
}

class Screens : public test::ColumnTreeTest
{
protected:
    // Calls a function with the dialog on each screen, and with the screen's scale.
    void RunOnEach(const std::function<void(double scale)>& body,
                   const std::vector<BYTE>& levels = {0, 1, 2, 2, 1, 0})
    {
        test::SetTable(levels, 32);
        RunInside([&] {
            QWidget& window = test::WidgetOf(m_dialog);
            const QSize size = window.size();
            ASSERT_EQ(QGuiApplication::screens().size(), screenCount);
            for (QScreen* const screen : QGuiApplication::screens()) {
                window.windowHandle()->setScreen(screen);
                window.setGeometry(QRect(screen->geometry().topLeft() + QPoint(50, 50), size));
                test::Settle();
                body(screen->devicePixelRatio());
                if (HasFailure())
                    GTEST_FAIL() << "at scale " << screen->devicePixelRatio();
            }
        });
    }
};

TEST_F(Screens, ShowTheTreeInTheirPixels)
{
    RunOnEach([&](double scale) {
        test::Click(Tree(), Cell(2, 2));
        test::Click(Tree(), Label(0));
        const QImage before = Shown(m_dialog);
        CRect label = test::PlaceOf(Tree());
        m_dialog.ScreenToClient(&label);
        const QTransform toPixels = QTransform::fromScale(scale, scale);
        EXPECT_GT(FineSquares(before, toPixels.mapRect(QRect(label.left + 50, label.top + 20, 90, 80))), 50);
        EXPECT_EQ(before, test::WidgetOf(m_dialog).grab().toImage()) << "what is shown is out of date";
        for (int i = 0; i < 40; ++i)
            test::MoveMouse(Tree(), {10 * i, 3 * i});
        for (const UINT code : {SB_LINERIGHT, SB_LINERIGHT, SB_LINELEFT, SB_LINELEFT})
            Frame().SendMessage(WM_HSCROLL, code);
        test::Click(Tree(), Cell(2, 2));
        test::Click(Tree(), Label(0));
        EXPECT_EQ(before, Shown(m_dialog)) << "pixels are left behind";
    });
}

TEST_F(Screens, ShowAfterEachStepWhatAFreshPaintingShows)
{
    std::vector<BYTE> levels;
    for (int i = 0; i < 200; ++i)
        levels.push_back(static_cast<BYTE>(i % 7 == 0 ? 0 : 1 + i % 2));
    std::minstd_rand random;
    const auto below = [&random](std::size_t end) { return static_cast<int>(random() % end); };
    RunOnEach(
        [&](double /*scale*/) {
            for (int row = 0; row < 200; ++row) {
                for (int column = 0; column < 32; ++column) {
                    k_LineDef& style = *Style(row, column);
                    style.SymbolShape = static_cast<short>(row % 10);
                    style.SymbolFill = static_cast<short>(column % 3);
                    style.SymbolSize = static_cast<short>(row % 50 == 49 ? 10 + column : 6 + column % 9);
                    style.LineWidth = static_cast<short>(row % 60 == 59 ? 30 : 1 + column % 5);
                }
            }
            Frame().InvalidateRect(nullptr, TRUE);
            const std::pair<const char*, std::function<void()>> steps[] = {
                {"wheel", [&] { test::TurnWheel(Tree(), 40 * (below(7) - 3)); }},
                {"line", [&] { test::TurnWheel(Tree(), below(2) != 0 ? -40 : 40); }},
                {"sideways", [&] { Frame().SendMessage(WM_HSCROLL, static_cast<WPARAM>(below(8))); }},
                {"row", [&] { test::Click(Tree(), Label(below(20))); }},
                {"cell", [&] { test::Click(Tree(), Cell(below(20), 1 + below(8))); }},
                {"key", [&] { test::PressKey(Tree(), below(2) != 0 ? VK_DOWN : VK_UP); }},
                {"top", [&] { Tree().Select(Row(below(100)), TVGN_FIRSTVISIBLE); }},
                {"group", [&] { Tree().Expand(Row(below(30)), below(2) != 0 ? TVE_COLLAPSE : TVE_EXPAND); }},
            };
            for (int i = 0; i < 40; ++i) {
                const auto& [name, act] = steps[below(std::size(steps))];
                act();
                ASSERT_EQ(Shown(m_dialog), test::WidgetOf(m_dialog).grab().toImage()) << name << ' ' << i;
            }
        },
        levels);
}

TEST_F(Screens, ShowThePopupToItsEdges)
{
    RunOnEach([&](double /*scale*/) {
        const CRect tree = test::PlaceOf(Tree());
        CWnd& popup = *new k_ColorPopup(CPoint(tree.left, tree.top), RGB(0, 0, 0), &m_dialog, _T("Default"),
                                        _T("More colors"));
        test::MoveMouse(popup, {20, 40});
        const QImage before = Shown(popup);
        for (int i = 0; i < 40; ++i)
            test::MoveMouse(popup, {4 * i, 3 * i});
        test::MoveMouse(popup, {20, 40});
        EXPECT_EQ(before, Shown(popup)) << "pixels are left behind";
        const QRgb edge = before.pixel(before.width() - 1, 5);
        EXPECT_NE(edge, before.pixel(before.width() - 9, 5));
        for (int x = 0; x < before.width(); ++x)
            EXPECT_EQ(before.pixel(x, before.height() - 1), edge) << x;
        for (int y = 0; y < before.height(); ++y)
            EXPECT_EQ(before.pixel(before.width() - 1, y), edge) << y;
        test::PressKey(popup, VK_ESCAPE);
    });
}

} // namespace
