// The dialog on screens of several scales, from one to the next.
#include "support/AtlasDialog.h"
#include "support/TempPrefix.h"

#include <QBackingStore>
#include <QScreen>
#include <QWindow>
#include <controls/ColorPopup.h>

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
    void RunOnEach(const std::function<void(double scale)>& body)
    {
        test::SetTable({0, 1, 2, 2, 1, 0}, 32);
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
