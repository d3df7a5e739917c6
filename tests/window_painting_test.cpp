// What windows show: their own painting, and that of Qt below it.
#include "support/Gui.h"
#include "support/Witness.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <WindowSide.h>
#include <gtest/gtest.h>

namespace
{

using test::Heard;
using test::k_Witness;
using test::PixelOf;

constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF green = RGB(0, 255, 0);
constexpr COLORREF blue = RGB(0, 0, 255);

TEST(WindowPainting, IsOnTheBackgroundAndAtAnyTime)
{
    k_Witness window("window");
    window.m_fill = red;
    window.Open();
    EXPECT_EQ(PixelOf(window, {5, 5}), red);
    EXPECT_EQ(PixelOf(window, {15, 15}), GetSysColor(COLOR_BTNFACE));
    CClientDC(&window).FillSolidRect(12, 12, 10, 10, blue);
    test::Settle();
    EXPECT_EQ(PixelOf(window, {15, 15}), blue); // stays, as nothing was invalid
    window.m_fill = green;
    const RECT part{0, 0, 5, 5};
    window.RedrawWindow(&part);
    EXPECT_EQ(PixelOf(window, {2, 2}), green);
    EXPECT_EQ(PixelOf(window, {7, 7}), red); // outside of what was invalid
    window.InvalidateRect(nullptr);
    test::Settle();
    EXPECT_EQ(PixelOf(window, {15, 15}), GetSysColor(COLOR_BTNFACE));
}

TEST(WindowPainting, FollowsTheColorsOfTheDesktop)
{
    k_Witness window("window");
    window.Open();
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    test::ChangeSettings([&] { EXPECT_EQ(PixelOf(window, {15, 15}), RGB(255, 0, 255)); });
    EXPECT_EQ(PixelOf(window, {15, 15}), face);
}

TEST(WindowPainting, WaitsWhileTheWindowIsLocked)
{
    k_Witness window("window");
    k_Witness other("other");
    window.Open();
    other.Open();
    EXPECT_TRUE(LockWindowUpdate(window.m_hWnd));
    EXPECT_FALSE(LockWindowUpdate(other.m_hWnd));
    window.m_paints = 0;
    window.RedrawWindow();
    test::Settle();
    EXPECT_EQ(window.m_paints, 0);
    LockWindowUpdate(nullptr);
    test::Settle();
    EXPECT_EQ(window.m_paints, 1);
    LockWindowUpdate(window.m_hWnd);
    window.DestroyWindow();
    EXPECT_TRUE(LockWindowUpdate(other.m_hWnd));
    LockWindowUpdate(nullptr);
}

// A scroll area below a margin, which Qt paints green; nothing of it is drawn by message.
class Area : public ScrollAreaWindow<QAbstractScrollArea>
{
public:
    explicit Area(QWidget& parent) : ScrollAreaWindow(&parent)
    {
        setFrameShape(NoFrame);
        setViewportMargins(0, 8, 0, 0);
        setGeometry(10, 5, 40, 40);
        show();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        test::Note("painted by Qt");
        QPainter(viewport()).fillRect(viewport()->rect(), Qt::green);
    }
    void PaintInto(HDC context) override { CDC::FromHandle(context)->FillSolidRect(0, 0, 40, 40, blue); }
};

class k_Area : public k_Witness
{
public:
    k_Area() : k_Witness("area") {}
    enum { None, ByQt, Into, Part } m_painter = ByQt;

protected:
    afx_msg void OnPaint()
    {
        if (m_painter == ByQt) {
            Default();
            Default();      // once is enough
            RedrawWindow(); // later
        } else if (m_painter != None) {
            CPaintDC dc(this);
            if (m_painter == Into)
                DefWindowProc(WM_PAINT, reinterpret_cast<WPARAM>(dc.GetSafeHdc()), 0);
            dc.FillSolidRect(0, 0, 4, 4, red);
        }
    }
    afx_msg BOOL OnEraseBkgnd(CDC*) { return TRUE; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(k_Area, k_Witness)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

TEST(WindowPainting, OfAScrollAreaIsSharedWithQt)
{
    k_Witness parent("parent");
    k_Area area;
    parent.Open();
    auto* const widget = new Area(WindowSide::Of(parent.m_hWnd)->Widget());
    ASSERT_TRUE(area.SubclassWindow(widget->Handle()));
    test::Settle();
    CRect client;
    CRect whole;
    area.GetClientRect(&client);
    area.GetWindowRect(&whole);
    EXPECT_EQ(client, CRect(0, 0, 40, 32));
    EXPECT_EQ(whole, CRect(50, 35, 90, 75));
    area.ScreenToClient(&whole);
    EXPECT_EQ(whole.TopLeft(), CPoint(0, -8));

    Heard();
    const RECT corner{0, 0, 6, 6};
    area.RedrawWindow(&corner);
    EXPECT_EQ(Heard(), "painted by Qt");
    test::PressMouse(area, {1, 2});
    area.MoveWindow(0, 0, 50, 40);
    EXPECT_EQ(Heard(), "area down 1,2 L, area size 50,32");
    EXPECT_EQ(PixelOf(area, {2, 2}), green);
    area.m_painter = k_Area::Into;
    EXPECT_EQ(PixelOf(area, {2, 2}), red);
    EXPECT_EQ(PixelOf(area, {8, 8}), blue);
    area.m_painter = k_Area::Part;
    EXPECT_EQ(PixelOf(area, {8, 8}), blue); // nothing has erased it
    area.m_painter = k_Area::None;
    Heard();
    parent.RedrawWindow();
    EXPECT_EQ(Heard(), "");
    area.Detach();
    EXPECT_EQ(PixelOf(parent, {30, 30}), green); // by Qt alone
    EXPECT_EQ(Heard(), "painted by Qt");
}

} // namespace
