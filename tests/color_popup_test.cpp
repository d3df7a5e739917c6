// The colour popup, driven by mouse and keys: where its cells are, which one answers, what the owner hears
// for each way of closing, and what it looks like.
#include "support/ColorListener.h"
#include "support/Gui.h"

#include <ColorDialog.h>
#include <QApplication>
#include <QColorDialog>
#include <QPushButton>
#include <QTimer>
#include <WindowSide.h>
#include <controls/ColorPopup.h>
#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>

namespace
{

std::optional<int> edgeWidth; // in the place of the desktop's
[[maybe_unused]] const int german = setenv("LANGUAGE", "de", 1) + setenv("LC_ALL", "de_DE.UTF-8", 1);

} // namespace

extern "C" int realSystemMetrics(int index) asm("__real__Z16GetSystemMetricsi");
extern "C" int wrappedSystemMetrics(int index) asm("__wrap__Z16GetSystemMetricsi");
extern "C" int wrappedSystemMetrics(int index)
{
    return index == SM_CXEDGE && edgeWidth ? *edgeWidth : realSystemMetrics(index);
}

namespace
{

using test::ColorNotices;

constexpr COLORREF initial = 0x00123456; // no colour of the palette
constexpr COLORREF red = k_Palette[16].Color;
constexpr LPCTSTR none = _T("");
constexpr LPCTSTR shortDefault = _T("Auto");
constexpr LPCTSTR shortMore = _T("More");
constexpr LPCTSTR wide = _T("A text that is wider than eight cells side by side are");

CSize SizeOf(CWnd& window, LPCTSTR text)
{
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    CFont font;
    font.CreateFontIndirect(&metrics.lfMessageFont);
    CClientDC dc(&window);
    CFont* const before = dc.SelectObject(&font);
    const CSize size = dc.GetTextExtent(text);
    dc.SelectObject(before);
    return size;
}

// What the user chooses in the system's dialog, where a test doesn't show it.
std::function<INT_PTR(COLORREF& color, COLORREF* custom)> dialogAnswer;

class ColorPopup : public testing::Test
{
protected:
    ColorPopup()
    {
        SetColorDialogAnswer([](COLORREF& color, COLORREF* custom) { return dialogAnswer(color, custom); });
        dialogAnswer = [](COLORREF&, COLORREF*) -> INT_PTR { return ADD_FAILURE(), IDCANCEL; };
    }
    ~ColorPopup() override
    {
        Close();
        SetColorDialogAnswer(nullptr);
        edgeWidth.reset();
    }

    k_ColorPopup& Open(LPCTSTR defaultText, LPCTSTR moreText, COLORREF color = initial,
                       CPoint at = {200, 120})
    {
        Close();
        m_popup = new k_ColorPopup(at, color, &m_owner, defaultText, moreText);
        m_handle = m_popup->m_hWnd;
        m_gridTop = *defaultText != 0 ? SizeOf(m_owner, _T("A")).cy + 14 : 0;
        test::Settle();
        return *m_popup;
    }
    void Close()
    {
        if (IsWindow(m_handle) != FALSE)
            m_popup->DestroyWindow();
        test::Settle();
        m_owner.Heard();
    }

    CRect Place()
    {
        CRect place;
        m_popup->GetWindowRect(&place);
        return place;
    }
    CPoint PointIn(int cell)
    {
        if (cell == CELL_MORE)
            return {20, Place().Height() - 14};
        if (cell == CELL_DEFAULT)
            return {20, 14};
        return {2 + cell % 8 * 18 + 9, m_gridTop + 2 + cell / 8 * 18 + 9};
    }
    void Hover(int cell)
    {
        if (cell != CELL_NONE)
            test::MoveMouse(*m_popup, PointIn(cell));
    }

    // The cell that the owner has heard of since the last call.
    int HeardCell()
    {
        const ColorNotices heard = m_owner.Heard();
        if (heard.size() != 1 || heard[0].Message != g_msgSelChange)
            return CELL_NONE;
        if (heard[0].Color == CLR_DEFAULT)
            return CELL_DEFAULT;
        for (int cell = 0; cell < k_PaletteSize; ++cell) {
            if (k_Palette[cell].Color == heard[0].Color)
                return cell;
        }
        return heard[0].Color == initial ? CELL_MORE : CELL_NONE;
    }

    // A row of pixels by the system colours: face, shadow, highlight, light; c for others.
    std::string Row(int y, int left, int right)
    {
        std::string row;
        for (int x = left; x < right; ++x) {
            const COLORREF color = test::PixelOf(*m_popup, {x, y});
            row += color == GetSysColor(COLOR_BTNFACE)        ? 'f'
                   : color == GetSysColor(COLOR_BTNSHADOW)    ? 's'
                   : color == GetSysColor(COLOR_BTNHIGHLIGHT) ? 'h'
                   : color == GetSysColor(COLOR_3DLIGHT)      ? 'l'
                                                              : 'c';
        }
        return row;
    }

    test::k_ColorListener m_owner{{200, 100, 260, 120}};
    k_ColorPopup* m_popup = nullptr;
    HWND m_handle = nullptr;
    int m_gridTop = 0; // below a default cell
};

TEST_F(ColorPopup, GrowsWithItsTexts)
{
    const int high = SizeOf(m_owner, shortMore).cy;
    const int broad = SizeOf(m_owner, wide).cx;
    ASSERT_GT(broad, 148);
    struct Case {
        LPCTSTR DefaultText, MoreText;
        int Width, Height;
    };
    for (const Case& it : {Case{none, none, 148, 94}, Case{none, shortMore, 148, 110 + high},
                           Case{shortDefault, none, 148, 110 + high}, Case{none, wide, broad + 4, 110 + high},
                           Case{shortDefault, shortMore, 148, 126 + 2 * high},
                           Case{wide, shortMore, broad + 4, 126 + 2 * high}}) {
        Open(it.DefaultText, it.MoreText);
        EXPECT_EQ(Place(), CRect(200, 120, 200 + it.Width, 120 + it.Height));
        for (int cell = 0; cell < k_PaletteSize; ++cell)
            EXPECT_EQ(test::PixelOf(*m_popup, PointIn(cell)), k_Palette[cell].Color);
    }
    edgeWidth = 5; // the swatch is 18 - 2 * 6 wide
    Open(none, none);
    EXPECT_EQ(Place().Width(), 8 * 18 + 2 * 5);
    edgeWidth = 6; // it would be 4 wide
    Open(none, none);
    EXPECT_EQ(Place().Width(), 8 * 19 + 2 * 6);
}

TEST_F(ColorPopup, StaysOnTheScreen)
{
    const int right = GetSystemMetrics(SM_CXSCREEN);
    const int bottom = GetSystemMetrics(SM_CYSCREEN);
    Open(none, none, initial, {right - 148, bottom - 94});
    EXPECT_EQ(Place().TopLeft(), CPoint(right - 148, bottom - 94));
    Open(none, none, initial, {right - 147, 0});
    EXPECT_EQ(Place().TopLeft(), CPoint(right - 148, 0));
    Open(none, none, initial, {-1, 0});
    EXPECT_EQ(Place().TopLeft(), CPoint(0, 0));
    Open(none, none, initial, {10, bottom - 93}); // above a button 20 high
    EXPECT_EQ(Place().TopLeft(), CPoint(10, bottom - 93 - 94 - 20));
    CString endless(wide);
    for (int i = 0; i < 6; ++i)
        endless += CString(endless);
    Open(none, endless, initial, {10, 0});
    EXPECT_EQ(Place().left, 0);
}

TEST_F(ColorPopup, AnswersWhereItsCellsAreSensitive)
{
    struct Case {
        CPoint Point;
        int Cell;
    };
    const int high = SizeOf(m_owner, shortMore).cy;
    const auto check = [this](LPCTSTR defaultText, LPCTSTR moreText, std::initializer_list<Case> cases) {
        for (const Case& it : cases) {
            Open(defaultText, moreText);
            test::MoveMouse(*m_popup, it.Point);
            EXPECT_EQ(HeardCell(), it.Cell) << it.Point.x << ',' << it.Point.y;
        }
    };
    check(none, none,
          {{{2, 2}, 0},
           {{19, 19}, 0},
           {{20, 19}, 1},
           {{19, 20}, 8},
           {{145, 91}, 39},
           {{146, 91}, CELL_NONE},
           {{145, 92}, CELL_NONE},
           {{0, 0}, 0},
           {{-15, -15}, 0},
           {{-16, 5}, CELL_NONE},
           {{5, -16}, CELL_NONE},
           {{5, -34}, CELL_NONE},
           {{-52, 5}, CELL_NONE}});
    check(none, shortMore, // its cell is painted from 2, 94 to 146, 106 + high
          {{{4, 96}, CELL_MORE},
           {{3, 96}, CELL_NONE},
           {{4, 95}, CELL_NONE},
           {{147, 96}, CELL_MORE},
           {{148, 96}, CELL_NONE},
           {{4, 107 + high}, CELL_MORE},
           {{4, 108 + high}, CELL_NONE},
           {{5, -34}, CELL_NONE},
           {{-34, 5}, CELL_NONE}});
    check(shortDefault, none, // painted from 2, 2 to 146, 14 + high; the first row from 16 + high
          {{{4, 4}, CELL_DEFAULT},
           {{3, 4}, CELL_NONE},
           {{4, 15 + high}, CELL_DEFAULT},
           {{4, 16 + high}, 0},
           {{3, 15 + high}, 0},
           {{4, 31 + high}, 0},
           {{4, 32 + high}, 8},
           {{4, -40}, CELL_NONE}});

    Open(none, none);
    Hover(5);
    test::MoveMouse(*m_popup, {6, 6 + 200}); // outside: stays
    Hover(5);                                // the same: not told again
    EXPECT_EQ(HeardCell(), 5);
}

TEST_F(ColorPopup, KeysWalkTheCells)
{
    constexpr int fallback = 100;
    constexpr int beforeGrid = 101;
    constexpr UINT keys[] = {VK_DOWN, VK_UP, VK_RIGHT, VK_LEFT};
    struct Way {
        int From;
        int To[4];
    };
    const Way grid[] = {{CELL_NONE, {fallback, beforeGrid, fallback, beforeGrid}},
                        {0, {8, beforeGrid, 1, beforeGrid}},
                        {3, {11, beforeGrid, 4, 2}},
                        {7, {15, beforeGrid, 8, 6}},
                        {8, {16, 0, 9, 7}},
                        {20, {28, 12, 21, 19}},
                        {31, {39, 23, 32, 30}},
                        {32, {fallback, 24, 33, 31}},
                        {39, {fallback, 31, fallback, 38}}};
    struct Popup {
        LPCTSTR DefaultText, MoreText;
        int Fallback, BeforeGrid;
        std::vector<Way> OfTexts;
    };
    const Popup popups[] = {
        {none, none, 0, 39, {}},
        {none, shortMore, CELL_MORE, CELL_MORE, {{CELL_MORE, {0, 39, 0, 39}}}},
        {shortDefault, none, CELL_DEFAULT, CELL_DEFAULT, {{CELL_DEFAULT, {0, 39, 0, 39}}}},
        {shortDefault,
         shortMore,
         CELL_MORE,
         CELL_DEFAULT,
         {{CELL_MORE, {CELL_DEFAULT, 39, CELL_DEFAULT, 39}}, {CELL_DEFAULT, {0, CELL_MORE, 0, CELL_MORE}}}}};
    for (const Popup& popup : popups) {
        std::vector<Way> ways(std::begin(grid), std::end(grid));
        ways.insert(ways.end(), popup.OfTexts.begin(), popup.OfTexts.end());
        for (const Way& way : ways) {
            for (int key = 0; key < 4; ++key) {
                Open(popup.DefaultText, popup.MoreText);
                Hover(way.From);
                m_owner.Heard();
                test::PressKey(*m_popup, keys[key]);
                int to = way.To[key];
                if (to >= fallback)
                    to = to == fallback ? popup.Fallback : popup.BeforeGrid;
                EXPECT_EQ(HeardCell(), to) << "key " << keys[key] << " from " << way.From;
            }
        }
    }
}

TEST_F(ColorPopup, TellsItsOwnerHowItEnds)
{
    constexpr COLORREF picked = 0x0000AA01;
    const auto ok = [](COLORREF& color, COLORREF*) -> INT_PTR { return color = picked, IDOK; };
    const auto cancel = [](COLORREF& color, COLORREF*) -> INT_PTR { return color = picked, IDCANCEL; };
    const auto click = [this](CPoint point) {
        test::PressMouse(*m_popup, point);
        test::ReleaseMouse(*m_popup, point);
    };
    const auto leave = [] {
        Q_EMIT qApp->applicationStateChanged(Qt::ApplicationInactive);
        Q_EMIT qApp->applicationStateChanged(Qt::ApplicationActive);
    };
    const auto key = [this](UINT virtualKey) { test::PressKey(*m_popup, virtualKey); };
    struct Case {
        int Line;
        std::vector<int> Cells; // that the mouse passes
        std::function<void()> End;
        ColorNotices Heard;
    };
    const Case cases[] = {
        {__LINE__, {16}, [&] { click(PointIn(16)); }, {{g_msgSelChange, red}, {g_msgSelEndOK, red}}},
        {__LINE__, {16}, [&] { key(VK_RETURN); }, {{g_msgSelChange, red}, {g_msgSelEndOK, red}}},
        {__LINE__, {16}, [&] { key(VK_SPACE); }, {{g_msgSelChange, red}, {g_msgSelEndOK, red}}},
        {__LINE__,
         {16},
         [&] {
             click({0, 0});
         },
         {{g_msgSelChange, red}, {g_msgSelEndOK, red}}},
        {__LINE__,
         {16},
         [&] {
             click({147, 0});
         },
         {{g_msgSelChange, red}, {g_msgSelEndOK, red}}},
        {__LINE__,
         {16},
         [&] {
             click({148, 0});
         },
         {{g_msgSelChange, red}, {g_msgSelEndChange, initial}}},
        {__LINE__,
         {16},
         [&] {
             click({0, -1});
         },
         {{g_msgSelChange, red}, {g_msgSelEndChange, initial}}},
        {__LINE__, {16}, [&] { key(VK_ESCAPE); }, {{g_msgSelChange, red}, {g_msgSelEndChange, initial}}},
        {__LINE__, {16}, leave, {{g_msgSelChange, red}, {g_msgSelEndChange, initial}}},
        {__LINE__,
         {},
         [&] {
             click({5, 5});
         },
         {{g_msgSelEndOK, initial}}},
        {__LINE__, {}, [&] { key(VK_RETURN); }, {{g_msgSelEndOK, initial}}},
        {__LINE__,
         {CELL_DEFAULT},
         [&] { click(PointIn(CELL_DEFAULT)); },
         {{g_msgSelChange, CLR_DEFAULT}, {g_msgSelEndOK, CLR_DEFAULT}}},
        {__LINE__,
         {16, CELL_MORE},
         [&] { dialogAnswer = ok, click(PointIn(CELL_MORE)); },
         {{g_msgSelChange, red}, {g_msgSelChange, initial}, {g_msgSelEndOK, picked}}},
        {__LINE__,
         {16, CELL_MORE},
         [&] { dialogAnswer = cancel, key(VK_RETURN); },
         {{g_msgSelChange, red}, {g_msgSelChange, initial}, {g_msgSelEndChange, initial}}},
        {__LINE__,
         {CELL_MORE},
         [&] {
             click({-1, 0});
         },
         {{g_msgSelChange, initial}, {g_msgSelEndChange, initial}}},
        // Ended by another program while the dialog is open, and then by the dialog.
        {__LINE__,
         {CELL_MORE},
         [&] {
             dialogAnswer = [&](COLORREF& color, COLORREF*) -> INT_PTR {
                 leave();
                 EXPECT_TRUE(IsWindow(m_handle));
                 return color = picked, IDOK;
             };
             key(VK_RETURN);
         },
         {{g_msgSelChange, initial}, {g_msgSelEndChange, initial}, {g_msgSelEndOK, picked}}},
    };
    for (const Case& it : cases) {
        Open(shortDefault, shortMore);
        for (const int cell : it.Cells)
            Hover(cell);
        EXPECT_EQ(CWnd::GetCapture(), m_popup);
        it.End();
        EXPECT_FALSE(IsWindow(m_handle)) << it.Line;
        EXPECT_EQ(CWnd::GetCapture(), nullptr) << it.Line;
        test::Settle();
        EXPECT_EQ(m_owner.Heard(), it.Heard) << it.Line;
    }
}

TEST_F(ColorPopup, TakesTheMouseBackAfterItLostTheKeyboard)
{
    Open(none, none);
    m_owner.SetFocus();
    m_popup->SendMessage(WM_KILLFOCUS);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
    Hover(3);
    EXPECT_EQ(CWnd::GetCapture(), m_popup);
}

TEST_F(ColorPopup, ShowsWhichCellIsChosenAndWhichIsHot)
{
    const int high = SizeOf(m_owner, shortMore).cy;
    Open(none, shortMore, k_Palette[9].Color); // its cell lies from 20, 20 to 38, 38
    EXPECT_EQ(Row(20, 19, 39), "f"
                               "sssssssssssssssssh"
                               "f");
    EXPECT_EQ(Row(25, 19, 39), "f"
                               "shhsccccccccccshhh"
                               "f");
    EXPECT_EQ(Row(34, 19, 39), "f"
                               "shhsssssssssssshhh"
                               "f");
    EXPECT_EQ(Row(37, 19, 39), "f"
                               "hhhhhhhhhhhhhhhhhh"
                               "f");
    EXPECT_EQ(Row(25, 37, 57), "h"
                               "fffsccccccccccsfff"
                               "f"); // and one that is neither
    EXPECT_EQ(Row(0, 0, 4) + Row(1, 0, 4), "llll"
                                           "lhhh"); // the window's frame
    EXPECT_EQ(Row(94, 3, 9) + Row(95, 3, 9), "fffsss"
                                             "fffhhh");
    EXPECT_EQ(Row(94, 139, 145) + Row(95, 139, 145), "sssfff"
                                                     "hhhfff");
    Hover(9);
    EXPECT_EQ(Row(20, 19, 39), "f"
                               "hhhhhhhhhhhhhhhhhs"
                               "f");
    EXPECT_EQ(Row(25, 19, 39), "f"
                               "hffsccccccccccsffs"
                               "f");
    Hover(10);
    EXPECT_EQ(Row(25, 19, 57), "f"
                               "shhsccccccccccshhh"
                               "hffsccccccccccsffs"
                               "f");

    Open(none, shortMore); // painted from 3, 99 to 145, 105 + high
    EXPECT_EQ(Row(98, 2, 8) + Row(99, 2, 8) + Row(100, 2, 8), "ffffff"
                                                              "fsssss"
                                                              "fsllll");
    EXPECT_EQ(Row(105 + high - 1, 2, 8), "fhhhhh");
    Hover(CELL_MORE);
    EXPECT_EQ(Row(98, 2, 8) + Row(99, 2, 8) + Row(100, 2, 8), "ffffff"
                                                              "fhhhhh"
                                                              "fhffff");

    Open(shortDefault, none, CLR_DEFAULT); // from 3, 3 to 145, 13 + high; its frame from 7, 7
    EXPECT_EQ(Row(2, 2, 10) + Row(3, 2, 10) + Row(6, 2, 10), "ffffffff"
                                                             "fsssssss"
                                                             "fsllllll");
    EXPECT_EQ(Row(7, 2, 10) + Row(8, 2, 10) + Row(8 + high, 2, 10), "fslllsss"
                                                                    "fslllsll"
                                                                    "fslllsss");
    Hover(CELL_DEFAULT);
    EXPECT_EQ(Row(3, 2, 10) + Row(4, 2, 10), "fhhhhhhh"
                                             "fhffffff");
    std::string middle;
    for (int y = 8; y < 8 + high; ++y)
        middle += Row(y, 54, 94);
    EXPECT_NE(middle.find('c'), std::string::npos) << "no text";
}

TEST_F(ColorPopup, NamesItsColorsInTheUsersLanguage)
{
    const auto textAt = [this](CPoint point) {
        test::MoveMouse(*m_popup, point);
        return WindowSide::Of(m_handle)->Widget().toolTip().toStdString();
    };
    Open(shortDefault, shortMore);
    EXPECT_EQ(textAt(PointIn(0)), "Schwarz");
    EXPECT_EQ(textAt({19, m_gridTop + 20}), "Dunkelrot");
    EXPECT_EQ(textAt(PointIn(39)), "Weiß");
    EXPECT_EQ(textAt(PointIn(CELL_DEFAULT)) + textAt(PointIn(CELL_MORE)), "");
}

TEST_F(ColorPopup, LendsItsCustomColorsToTheDialog)
{
    std::vector<COLORREF> seen;
    dialogAnswer = [&](COLORREF&, COLORREF* custom) -> INT_PTR {
        seen = {custom[0], custom[1], custom[15]};
        custom[1] = 0x00445566;
        return IDCANCEL;
    };
    for (const COLORREF second : {0x00800000U, 0x00445566U}) {
        Open(none, shortMore);
        Hover(CELL_MORE);
        test::PressKey(*m_popup, VK_RETURN);
        EXPECT_EQ(seen, (std::vector<COLORREF>{0, second, 0x00FFFFFF}));
    }
}

// The system's dialog itself, with the popup as its owner.
TEST_F(ColorPopup, TakesWhatTheUserPicksInTheDialog)
{
    SetColorDialogAnswer(nullptr);
    QColorDialog::setCustomColor(0, QColor(1, 2, 3)); // the host's
    const auto choose = [this](const std::function<void(QColorDialog&)>& act) {
        Open(none, shortMore);
        Hover(CELL_MORE);
        m_owner.Heard();
        QTimer::singleShot(0, [&act] {
            auto* const dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            EXPECT_EQ(dialog->currentColor(), QColor(0x56, 0x34, 0x12));
            dialog->setCurrentColor(QColor(0x11, 0x22, 0x33));
            act(*dialog);
        });
        test::PressKey(*m_popup, VK_RETURN);
        EXPECT_EQ(QColorDialog::customColor(0), QColor(1, 2, 3));
        return m_owner.Heard();
    };
    EXPECT_EQ(choose([](QColorDialog& dialog) { dialog.accept(); }),
              (ColorNotices{{g_msgSelEndOK, 0x00332211}}));
    EXPECT_EQ(choose([](QColorDialog& dialog) {
                  EXPECT_EQ(QColorDialog::customColor(15), QColor(Qt::white));
                  for (QPushButton* const button : dialog.findChildren<QPushButton*>()) {
                      if (button->text().contains("Custom"))
                          button->click();
                  }
                  dialog.reject();
              }),
              (ColorNotices{{g_msgSelEndChange, initial}}));
    choose([](QColorDialog& dialog) { // the custom colour stays, though the dialog was cancelled
        EXPECT_EQ(QColorDialog::customColor(0), QColor(0x11, 0x22, 0x33));
        dialog.reject();
    });
}

} // namespace
