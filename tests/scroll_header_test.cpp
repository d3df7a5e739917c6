// The controls around a table: the scroll bar below it and the header above.
#include "support/Gui.h"

#include <QApplication>
#include <QMouseEvent>
#include <QStyleOptionSlider>
#include <WindowSide.h>
#include <afxcmn.h>
#include <gtest/gtest.h>
#include <limits>

namespace
{

constexpr DWORD ofChild = WS_CHILD | WS_VISIBLE;
constexpr UINT barId = 3;

// Notes what the controls in it say.
class k_Table : public CWnd
{
public:
    k_Table()
    {
        CreateEx(0, AfxRegisterWndClass(0), _T(""), WS_POPUP | WS_VISIBLE, 0, 0, 400, 200, nullptr, 0);
    }

    std::string Heard() { return std::exchange(m_heard, {}); }
    void Note(const std::string& what) { m_heard += (m_heard.empty() ? "" : ", ") + what; }

    int m_moveTo = -1; // where it sets the scroll bar that tells it of something

protected:
    afx_msg void OnHScroll(UINT code, UINT position, CWnd* bar)
    {
        Note(std::to_string(code) + (position != 0 ? " at " + std::to_string(position) : ""));
        SCROLLINFO info{0, SIF_POS, 0, 0, 0, m_moveTo, 0};
        if (m_moveTo >= 0)
            bar->SetScrollInfo(SB_CTL, &info);
    }
    DECLARE_MESSAGE_MAP()

private:
    std::string m_heard;
};

BEGIN_MESSAGE_MAP(k_Table, CWnd)
ON_WM_HSCROLL()
END_MESSAGE_MAP()

class ScrollBar : public testing::Test
{
protected:
    ScrollBar()
    {
        m_bar.Create(ofChild | SBS_BOTTOMALIGN, CRect(0, 100, 300, 117), &m_table, barId);
        Set(SIF_RANGE | SIF_PAGE | SIF_POS, {0, 999, 300, 100});
        test::Settle();
    }

    struct Setting {
        int Min;
        int Max;
        UINT Page;
        int Position;
        bool operator==(const Setting&) const = default;
    };
    int Set(UINT mask, const Setting& to)
    {
        const SCROLLINFO info{sizeof info, mask, to.Min, to.Max, to.Page, to.Position, 0};
        return ::SetScrollInfo(m_bar.m_hWnd, SB_CTL, &info, TRUE);
    }
    Setting Get()
    {
        SCROLLINFO info{};
        EXPECT_TRUE(m_bar.GetScrollInfo(SB_CTL, &info));
        return {info.nMin, info.nMax, info.nPage, info.nPos};
    }
    int Position() { return ::GetScrollPos(m_bar.m_hWnd, SB_CTL); }

    // The middle of a part.
    CPoint PartOf(QStyle::SubControl part)
    {
        auto& bar = static_cast<QWidget&>(WindowSide::Of(m_bar.m_hWnd)->Widget());
        QStyleOptionSlider option;
        option.initFrom(&bar);
        option.orientation = Qt::Horizontal;
        option.maximum = 700;
        option.pageStep = 300;
        option.sliderPosition = option.sliderValue = Position();
        option.state |= QStyle::State_Horizontal;
        const QRect rect = bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar);
        return {rect.center().x(), rect.center().y()};
    }
    void Drag(CPoint from, int distance)
    {
        QWidget& bar = WindowSide::Of(m_bar.m_hWnd)->Widget();
        const QPointF to(from.x + distance, from.y);
        QMouseEvent move(QEvent::MouseMove, to, bar.mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        test::PressMouse(m_bar, from);
        QApplication::sendEvent(&bar, &move);
    }

    k_Table m_table;
    CScrollBar m_bar;
};

TEST_F(ScrollBar, TellsWhatTheUserDoesAndStaysWhereItIs)
{
    const struct {
        QStyle::SubControl Part;
        const char* Heard;
    } clicks[] = {{QStyle::SC_ScrollBarSubLine, "0, 8"},
                  {QStyle::SC_ScrollBarAddLine, "1, 8"},
                  {QStyle::SC_ScrollBarSubPage, "2, 8"},
                  {QStyle::SC_ScrollBarAddPage, "3, 8"}};
    for (const auto& click : clicks) {
        const CPoint point = PartOf(click.Part);
        test::PressMouse(m_bar, point);
        test::ReleaseMouse(m_bar, point);
        EXPECT_EQ(m_table.Heard(), click.Heard);
        EXPECT_EQ(Position(), 100);
    }
    m_table.m_moveTo = 160;
    test::TurnWheel(m_bar, -120);
    EXPECT_EQ(m_table.Heard(), "5 at 160, 8");
    EXPECT_EQ(Position(), 160);
}

TEST_F(ScrollBar, FollowsTheThumb)
{
    const CPoint thumb = PartOf(QStyle::SC_ScrollBarSlider);
    Drag(thumb, 30);
    const int position = Position();
    EXPECT_GT(position, 100);
    EXPECT_LT(position, 700);
    test::ReleaseMouse(m_bar, {thumb.x + 30, thumb.y});
    const std::string at = std::to_string(position);
    EXPECT_EQ(m_table.Heard(), "5 at " + at + ", 4 at " + at + ", 8");
    EXPECT_EQ(Position(), position);
}

TEST_F(ScrollBar, KeepsItsPositionWithinItsRange)
{
    constexpr UINT all = SIF_RANGE | SIF_PAGE | SIF_POS;
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    const struct {
        UINT Mask;
        Setting To;
        Setting Result;
    } cases[] = {
        {all, {0, 999, 300, 701}, {0, 999, 300, 700}},
        {SIF_POS, {7, 7, 7, -1}, {0, 999, 300, 0}},
        {SIF_PAGE, {7, 7, 1, 7}, {0, 999, 1, 0}},
        {all, {0, 200, 300, 5}, {0, 200, 201, 0}}, // all is seen
        {SIF_RANGE, {10, 5, 0, 0}, {0, 0, 1, 0}},
        {all, {-20, 20, 0, 20}, {-20, 20, 0, 20}},
        {all, {least, most, 0, most}, {least, most, 0, most}},
        {all, {least, most, ~0U, most}, {least, most, most, 1}},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Set(each.Mask, each.To), each.Result.Position);
        EXPECT_EQ(Get(), each.Result) << each.Result.Max;
    }
    SCROLLINFO info{};
    EXPECT_FALSE(m_bar.GetScrollInfo(SB_VERT, &info));
    EXPECT_FALSE(m_table.GetScrollInfo(SB_CTL, &info));
    EXPECT_EQ(m_table.Heard(), "");
}

} // namespace
