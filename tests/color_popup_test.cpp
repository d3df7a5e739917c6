// The colour popup, driven by mouse and keys: where its cells are, which one answers, what the owner hears
// for each way of closing, and what it looks like.
#include "support/ColorListener.h"

#include <QColorDialog>
#include <QSettings>
#include <QTemporaryDir>
#include <array>
#include <controls/ColorPopup.h>

namespace
{

[[maybe_unused]] const int isSet = setenv("LANGUAGE", "de", 1) + setenv("LC_ALL", "de_DE.UTF-8", 1) +
                                   setenv("QT_QPA_PLATFORM", "offscreen:configfile=" TWO_SCREENS, 1);

constexpr COLORREF initial = 0x123456; // no colour of the palette
constexpr LPCTSTR none = _T("");
constexpr LPCTSTR defaults = _T("Auto");
constexpr LPCTSTR more = _T("More");
constexpr LPCTSTR wide = _T("A text that is wider than eight cells side by side are");

k_ColorPopup* popup = nullptr; // the one that is up
int paints = 0;                // of all of them

class k_KnownPopup : public k_ColorPopup
{
public:
    using k_ColorPopup::k_ColorPopup;
    ~k_KnownPopup() override { popup = nullptr; }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        paints += message == WM_PAINT ? 1 : 0;
        return k_ColorPopup::WindowProc(message, wParam, lParam);
    }
};

// What the owner is told of a move to a cell.
std::string MoveTo(int cell)
{
    std::ostringstream text;
    const COLORREF ofText = cell == CELL_MORE ? initial : CLR_DEFAULT;
    text << "change " << std::hex << (cell < 0 ? ofText : k_Palette[cell].Color);
    return cell == CELL_NONE ? "" : text.str();
}

void LeaveProgram()
{
    Q_EMIT qApp->applicationStateChanged(Qt::ApplicationInactive);
    Q_EMIT qApp->applicationStateChanged(Qt::ApplicationActive);
}

class ColorPopup : public testing::Test
{
protected:
    ColorPopup() { QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path()); }
    ~ColorPopup() override { Close(); }

    void Open(LPCTSTR defaultText, LPCTSTR moreText, COLORREF color = initial, CPoint at = {200, 120})
    {
        Close();
        popup = new k_KnownPopup(at, color, &m_owner, defaultText, moreText);
        m_gridTop = *defaultText != 0 ? m_high + 14 : 0;
        test::Settle();
    }
    void Close()
    {
        if (popup != nullptr)
            popup->DestroyWindow();
        test::Settle();
        test::Heard();
    }
    CPoint PointIn(int cell) const
    {
        if (cell < 0)
            return {20, cell == CELL_MORE ? test::PlaceOf(*popup).Height() - 14 : 14};
        return {11 + cell % 8 * 18, m_gridTop + 11 + cell / 8 * 18};
    }
    void Hover(int cell) const { test::MoveMouse(*popup, PointIn(cell)); }
    static std::string Row(int y, int left, int right) { return test::RowOf(*popup, y, left, right); }

    QTemporaryDir m_settings; // where Qt keeps custom colours
    test::k_ColorListener m_owner{{200, 100, 260, 120}};
    QFontMetrics m_text{QApplication::font()};
    int m_high = m_text.height();
    int m_gridTop = 0;
};

TEST_F(ColorPopup, GrowsWithItsTexts)
{
    const auto check = [this](LPCTSTR defaultText, LPCTSTR moreText, int width, int height) {
        Open(defaultText, moreText);
        EXPECT_EQ(test::PlaceOf(*popup), CRect(200, 120, 200 + width, 120 + height));
        for (int cell = 0; cell < k_PaletteSize; ++cell)
            EXPECT_EQ(test::PixelOf(*popup, PointIn(cell)), k_Palette[cell].Color);
    };
    const int broad = m_text.horizontalAdvance(QStringView(wide).toString());
    ASSERT_GT(broad, 148);
    check(none, none, 148, 94);
    check(none, more, 148, 110 + m_high);
    check(defaults, none, 148, 110 + m_high);
    check(defaults, more, 148, 126 + 2 * m_high);
    check(wide, more, broad + 4, 126 + 2 * m_high);
    check(none, wide, broad + 4, 110 + m_high);
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPixelSize(40);
    QApplication::setFont(large);
    check(none, more, 148, 110 + QFontMetrics(large).height());
    QApplication::setFont(before);
}

TEST_F(ColorPopup, StaysOnTheScreenOfItsOwner)
{
    for (const QScreen* const screen : QGuiApplication::screens()) {
        const QRect all = screen->geometry();
        const auto placeOf = [&](int x, int y) {
            test::WidgetOf(m_owner).move(all.center());
            Open(none, none, initial, {x, y});
            const CRect place = test::PlaceOf(*popup);
            return CPoint(place.left, place.top);
        };
        const int top = all.top();
        const int right = all.right() + 1;
        const int bottom = all.bottom() + 1;
        EXPECT_EQ(placeOf(right - 148, bottom - 94), CPoint(right - 148, bottom - 94));
        EXPECT_EQ(placeOf(right - 147, top), CPoint(right - 148, top));
        EXPECT_EQ(placeOf(all.left() - 1, top), CPoint(all.left(), top));
        EXPECT_EQ(placeOf(all.left() + 10, bottom - 93), // above a button 20 high
                  CPoint(all.left() + 10, bottom - 93 - 94 - 20));
    }
}

TEST_F(ColorPopup, AnswersWhereItsCellsAreSensitive)
{
    const auto check = [this](LPCTSTR defaultText, LPCTSTR moreText, int cell, std::vector<CPoint> points) {
        for (const CPoint& point : points) {
            Open(defaultText, moreText);
            test::MoveMouse(*popup, point);
            EXPECT_EQ(test::Heard(), MoveTo(cell)) << point.x << ',' << point.y;
        }
    };
    check(none, none, 0, {{2, 2}, {19, 19}, {0, 0}, {-15, -15}});
    check(none, none, 39, {{145, 91}});
    check(none, none, CELL_NONE, {{146, 91}, {145, 92}, {-16, 5}, {5, -16}, {5, -34}, {-52, 5}});
    // The cell for more is painted from 2, 94 to 146, 106 + m_high.
    check(none, more, CELL_MORE, {{4, 96}, {147, 96}, {4, 107 + m_high}});
    check(none, more, CELL_NONE, {{3, 96}, {4, 95}, {148, 96}, {4, 108 + m_high}, {5, -34}, {-34, 5}});
    // The default cell is painted from 2, 2 to 146, 14 + m_high, and the first row from 16 + m_high.
    check(defaults, none, CELL_DEFAULT, {{4, 4}, {4, 15 + m_high}});
    check(defaults, none, 0, {{4, 16 + m_high}, {3, 15 + m_high}, {4, 31 + m_high}});
    check(defaults, none, CELL_NONE, {{2, -40}, {-52, 80}});

    Open(none, none);
    Hover(5);
    test::MoveMouse(*popup, {6, 206}); // outside: stays
    Hover(5);                          // the same: isn't told again
    EXPECT_EQ(test::Heard(), MoveTo(5));
}

TEST_F(ColorPopup, KeysWalkTheCells)
{
    constexpr int F = 100; // the fallback
    constexpr int B = 101; // before the grid
    constexpr int D = CELL_DEFAULT;
    constexpr int M = CELL_MORE;
    using Way = std::array<int, 5>; // from; down, up, right, left
    const std::vector<Way> grid{{CELL_NONE, F, B, F, B}, {0, 8, B, 1, B},     {3, 11, B, 4, 2},
                                {7, 15, B, 8, 6},        {8, 16, 0, 9, 7},    {20, 28, 12, 21, 19},
                                {31, 39, 23, 32, 30},    {32, F, 24, 33, 31}, {39, F, 31, F, 38}};
    const auto check = [&](LPCTSTR defaultText, LPCTSTR moreText, int f, int b, std::vector<Way> ways) {
        ways.insert(ways.end(), grid.begin(), grid.end());
        for (const Way& way : ways) {
            std::size_t column = 1;
            for (const UINT key : {VK_DOWN, VK_UP, VK_RIGHT, VK_LEFT}) {
                Open(defaultText, moreText);
                if (way[0] != CELL_NONE)
                    Hover(way[0]);
                test::Heard();
                test::PressKey(*popup, key);
                int to = way[column++];
                if (to == F || to == B)
                    to = to == F ? f : b;
                EXPECT_EQ(test::Heard(), MoveTo(to)) << "key " << key << " from " << way[0];
            }
        }
    };
    check(none, none, 0, 39, {});
    check(none, more, M, M, {{M, 0, 39, 0, 39}});
    check(defaults, none, D, D, {{D, 0, 39, 0, 39}});
    check(defaults, more, M, D, {{M, D, 39, D, 39}, {D, 0, M, 0, M}});
}

TEST_F(ColorPopup, TellsItsOwnerHowItEnds)
{
    using Cells = std::initializer_list<int>;
    std::function<void(QColorDialog&)> answer;
    const auto end = [this, &answer](Cells cells, const std::function<void()>& act) {
        Open(defaults, more);
        for (const int cell : cells)
            Hover(cell);
        EXPECT_EQ(CWnd::GetCapture(), popup);
        if (answer)
            test::AnswerNext(answer);
        act();
        EXPECT_EQ(CWnd::GetCapture(), nullptr);
        EXPECT_EQ(popup, nullptr);
        return test::Heard();
    };
    const auto press = [&](Cells cells, UINT key) {
        return end(cells, [&] { test::PressKey(*popup, key); });
    };
    const auto click = [&](Cells cells, CPoint point) {
        return end(cells, [&] { test::Click(*popup, point); });
    };
    for (const CPoint inside : {CPoint(30, 60), CPoint(0, 0), CPoint(147, 0)})
        EXPECT_EQ(click({16}, inside), "change ff, ok ff"); // whatever is there, the hot cell decides
    for (const CPoint outside : {CPoint(148, 0), CPoint(0, -1), CPoint(0, 126 + 2 * m_high)})
        EXPECT_EQ(click({16}, outside), "change ff, cancel 123456");
    for (const UINT key : {VK_RETURN, VK_SPACE})
        EXPECT_EQ(press({16}, key), "change ff, ok ff");
    const auto moveAndClick = [] {
        test::WidgetOf(*popup).move(0, 0); // as a desktop does that keeps it on the screen
        test::Click(*popup, {30, 60});
    };
    EXPECT_EQ(end({16}, moveAndClick), "change ff, ok ff");
    EXPECT_EQ(press({16}, VK_ESCAPE), "change ff, cancel 123456");
    EXPECT_EQ(end({16}, LeaveProgram), "change ff, cancel 123456");
    EXPECT_EQ(end({16}, [] { test::WidgetOf(*popup).close(); }), "change ff, cancel 123456");
    const auto pressAltF4 = [] { QTest::keyClick(&test::WidgetOf(*popup), Qt::Key_F4, Qt::AltModifier); };
    EXPECT_EQ(end({16}, pressAltF4), "change ff, cancel 123456");
    EXPECT_EQ(click({}, {5, 5}), "ok 123456");
    EXPECT_EQ(press({}, VK_RETURN), "ok 123456");
    EXPECT_EQ(press({CELL_DEFAULT}, VK_RETURN), "change ff000000, ok ff000000");
    EXPECT_EQ(click({CELL_MORE}, {-1, 0}), "change 123456, cancel 123456"); // without a dialog

    // The user's own colours are kept from one popup to the next.
    answer = [](QColorDialog& dialog) {
        QColor next = QColorDialog::customColor(1);
        next.setRed(next.red() + 1);
        QColorDialog::setCustomColor(1, next.rgb());
        dialog.setCurrentColor(next);
        dialog.accept();
    };
    EXPECT_EQ(press({16, CELL_MORE}, VK_RETURN), "change ff, change 123456, ok 800001");
    EXPECT_EQ(click({CELL_MORE}, {5, 5}), "change 123456, ok 800002");
    answer = [](QColorDialog& dialog) {
        dialog.setCurrentColor(QColor(0xaa, 0, 0));
        dialog.reject();
    };
    EXPECT_EQ(press({16, CELL_MORE}, VK_RETURN), "change ff, change 123456, cancel 123456");
    answer = [](QColorDialog& dialog) {
        EXPECT_EQ(CWnd::GetCapture(), nullptr) << "the dialog has the mouse";
        LeaveProgram(); // ends the popup too, but leaves its window to the end of the dialog
        EXPECT_NE(popup, nullptr);
        dialog.setCurrentColor(QColor(0xaa, 0, 0));
        dialog.accept();
    };
    EXPECT_EQ(press({CELL_MORE}, VK_RETURN), "change 123456, cancel 123456, ok aa");
    answer = nullptr;

    Open(none, none);
    popup->SendMessage(WM_KILLFOCUS);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
    Hover(3);
    EXPECT_EQ(CWnd::GetCapture(), popup); // with the next message
}

TEST_F(ColorPopup, ShowsWhichCellIsChosenAndWhichIsHot)
{
    Open(none, more, k_Palette[9].Color);               // its cell lies from 20, 20 to 38, 38
    EXPECT_EQ(Row(0, 0, 4) + Row(1, 0, 4), "lllllhhh"); // the window's frame
    EXPECT_EQ(Row(20, 19, 39) + Row(34, 19, 39), "fssssssssssssssssshffshhsssssssssssshhhf");
    EXPECT_EQ(Row(25, 19, 57), "fshhsccccccccccshhhfffsccccccccccsffff");
    EXPECT_EQ(Row(94, 3, 9) + Row(95, 3, 9), "fffsssfffhhh"); // the line above the cell for more
    EXPECT_EQ(Row(94, 139, 145) + Row(95, 139, 145), "sssfffhhhfff");
    Hover(9);
    EXPECT_EQ(Row(25, 19, 57), "fhffsccccccccccsffsfffsccccccccccsffff");
    Hover(10);
    EXPECT_EQ(Row(25, 19, 57), "fshhsccccccccccshhhhffsccccccccccsffsf");
    const auto paintsAt = [](UINT message, const CWnd& changer) {
        const int before = paints;
        popup->SendMessage(message, reinterpret_cast<WPARAM>(changer.m_hWnd));
        test::Settle();
        return paints - before;
    };
    EXPECT_EQ(paintsAt(WM_QUERYNEWPALETTE, m_owner), 1);
    EXPECT_EQ(paintsAt(WM_PALETTECHANGED, m_owner), 1);
    EXPECT_EQ(paintsAt(WM_PALETTECHANGED, *popup), 0) << "the change is its own";

    Open(none, more); // painted from 3, 99 to 145, 105 + m_high
    EXPECT_EQ(Row(98, 2, 8) + Row(99, 2, 8) + Row(100, 2, 8), "fffffffsssssfsllll");
    EXPECT_EQ(Row(104 + m_high, 2, 8), "fhhhhh");
    Hover(CELL_MORE);
    EXPECT_EQ(Row(98, 2, 8) + Row(99, 2, 8) + Row(100, 2, 8), "fffffffhhhhhfhffff");
    const std::string text = Row(102 + m_high / 2, 54, 94);
    EXPECT_TRUE(text != std::string(40, 'f') && text.find('h') == std::string::npos) << text;

    Open(defaults, none, CLR_DEFAULT); // from 3, 3 to 145, 13 + m_high; its frame from 7, 7
    EXPECT_EQ(Row(2, 2, 10) + Row(3, 2, 10) + Row(6, 2, 10), "fffffffffsssssssfsllllll");
    EXPECT_EQ(Row(7, 2, 10) + Row(8, 2, 10) + Row(8 + m_high, 2, 10), "fslllsssfslllsllfslllsss");
    Hover(CELL_DEFAULT);
    EXPECT_EQ(Row(3, 2, 10) + Row(4, 2, 10), "fhhhhhhhfhffffff");
    EXPECT_NE(Row(8 + m_high / 2, 54, 94), std::string(40, 'f')) << "no text";
    EXPECT_EQ(Row(18 + m_high, 3, 8) + Row(19 + m_high, 3, 8), "fffffffsss"); // cell 0
    Open(wide, none);
    std::string line; // of the frame, behind the text
    for (int y = 8; y < 8 + m_high; ++y)
        line += Row(y, 7, 8);
    EXPECT_GT(std::ranges::count(line, 's'), 3) << line;
}

TEST_F(ColorPopup, StaysWithoutAWindowWhereItCannotOpen)
{
    const HWND handle = std::exchange(m_owner.m_hWnd, reinterpret_cast<HWND>(&m_owner)); // not a window
    const auto object = std::make_unique<k_ColorPopup>(CPoint(), initial, &m_owner, none, none);
    EXPECT_EQ(object->GetSafeHwnd(), nullptr);
    EXPECT_EQ(test::Heard(), "");
    m_owner.m_hWnd = handle;
}

TEST_F(ColorPopup, NamesItsColorsInTheUsersLanguage)
{
    const auto textAt = [](CPoint point) {
        test::MoveMouse(*popup, point);
        return test::WidgetOf(*popup).toolTip().toStdString();
    };
    Open(defaults, more);
    EXPECT_EQ(textAt({19, m_gridTop + 19}), "Schwarz"); // at its last pixel
    EXPECT_EQ(textAt(PointIn(39)), "Weiß");
    EXPECT_EQ(textAt(PointIn(CELL_DEFAULT)) + textAt(PointIn(CELL_MORE)), "");
    QWidget& widget = test::WidgetOf(*popup);
    const QPoint point(PointIn(12).x, PointIn(12).y);
    QHelpEvent rest(QEvent::ToolTip, point, widget.mapToGlobal(point));
    QApplication::sendEvent(&widget, &rest);
    EXPECT_EQ(QToolTip::text(), "Blaugrün");
    for (const QWidget* const other : QApplication::topLevelWidgets())
        EXPECT_FALSE(other->inherits("QTipLabel") && other->geometry().intersects(widget.geometry()));
}

} // namespace
