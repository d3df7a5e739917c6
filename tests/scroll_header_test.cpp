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
constexpr UINT headerId = 1;

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
    bool m_throws = false;
    LRESULT m_answer = 0;

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override
    {
        const auto& told = *reinterpret_cast<const NMHEADERW*>(lParam);
        EXPECT_EQ(told.hdr.idFrom, wParam);
        Note(std::to_string(static_cast<int>(told.hdr.code)) + " of " + std::to_string(told.iItem) +
             (told.pitem != nullptr ? ": " + std::to_string(told.pitem->cxy) : ""));
        *pResult = m_answer;
        return TRUE;
    }
    afx_msg void OnHScroll(UINT code, UINT position, CWnd* bar)
    {
        Note(std::to_string(code) + (position != 0 ? " at " + std::to_string(position) : ""));
        SCROLLINFO info{0, SIF_POS, 0, 0, 0, m_moveTo, 0};
        if (m_moveTo >= 0)
            bar->SetScrollInfo(SB_CTL, &info);
        if (m_throws)
            AfxThrowInvalidArgException();
    }
    DECLARE_MESSAGE_MAP()

private:
    std::string m_heard;
};

BEGIN_MESSAGE_MAP(k_Table, CWnd)
ON_WM_HSCROLL()
END_MESSAGE_MAP()

// Presses at the point, and moves with the button held.
void Drag(CWnd& window, CPoint from, int distance)
{
    QWidget& widget = WindowSide::Of(window.m_hWnd)->Client();
    const QPointF to(from.x + distance, from.y);
    QMouseEvent move(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    test::PressMouse(window, from);
    QApplication::sendEvent(&widget, &move);
}

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
    m_table.m_throws = true;
    EXPECT_NO_THROW(test::TurnWheel(m_bar, -120));
    EXPECT_EQ(m_table.Heard(), "5 at 220, 8"); // each message is one of its own
}

TEST_F(ScrollBar, FollowsTheThumb)
{
    const CPoint thumb = PartOf(QStyle::SC_ScrollBarSlider);
    Drag(m_bar, thumb, 30);
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

class Header : public testing::Test
{
protected:
    Header() { Make(HDS_BUTTONS | HDS_FULLDRAG); }

    void Make(DWORD style)
    {
        m_header.DestroyWindow();
        ASSERT_TRUE(m_header.Create(ofChild | style, CRect(0, 0, 300, 24), &m_table, headerId));
        Insert(0, _T("tree"), 100);
        Insert(9, _T("file 2"), 60, 1); // at the end
        Insert(1, _T("file 1"), 50, 2);
        test::Settle();
    }
    LRESULT Insert(WPARAM at, LPCWSTR text, int width, int format = 0)
    {
        HDITEMW item{
            HDI_WIDTH | HDI_TEXT | HDI_FORMAT, width, const_cast<LPWSTR>(text), nullptr, 0, format, 0};
        return m_header.SendMessage(HDM_INSERTITEMW, at, reinterpret_cast<LPARAM>(&item));
    }
    std::string ItemAt(int index)
    {
        WCHAR text[6]{};
        HDITEMW item{HDI_WIDTH | HDI_TEXT | HDI_FORMAT, 0, text, nullptr, 6, 0, 0};
        if (m_header.SendMessage(HDM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item)) ==
            FALSE)
            return "none";
        return QString::fromUtf16(text).toStdString() + ' ' + std::to_string(item.cxy) + ' ' +
               std::to_string(item.fmt);
    }
    std::string Items() { return ItemAt(0) + ", " + ItemAt(1) + ", " + ItemAt(2); }
    int Height()
    {
        RECT rect{1, 2, 31, 102};
        WINDOWPOS place{};
        HDLAYOUT layout{&rect, &place};
        EXPECT_TRUE(m_header.SendMessage(HDM_LAYOUT, 0, reinterpret_cast<LPARAM>(&layout)));
        EXPECT_EQ(CRect(place.x, place.y, place.x + place.cx, rect.top), CRect(1, 2, 31, 2 + place.cy));
        return place.cy;
    }

    k_Table m_table;
    CHeaderCtrl m_header;
};

TEST_F(Header, KeepsItsItems)
{
    EXPECT_EQ(m_header.GetItemCount(), 3);
    EXPECT_EQ(Items(), "tree 100 0, file  50 2, file  60 1"); // no more of a text than there is room for
    m_header.MoveWindow(-20, 0, 90, 24);
    test::Settle();
    EXPECT_EQ(Items(), "tree 100 0, file  50 2, file  60 1");
    EXPECT_EQ(ItemAt(3), "none");
    EXPECT_EQ(ItemAt(-1), "none");
    EXPECT_EQ(m_header.SendMessage(HDM_INSERTITEMW), -1);
    Insert(0, nullptr, -5, 7);
    EXPECT_EQ(ItemAt(0), " 0 0");
    EXPECT_EQ(m_table.Heard(), "");
}

TEST_F(Header, IsAsHighAsItsFont)
{
    const int height = Height();
    EXPECT_GE(height, 16);
    LOGFONTW large{};
    large.lfHeight = -40;
    CFont font;
    font.CreateFontIndirect(&large);
    m_header.SetFont(&font);
    EXPECT_EQ(m_header.GetFont(), &font);
    EXPECT_GT(Height(), height + 20);
    m_header.SetFont(nullptr);
    EXPECT_EQ(Height(), height);
}

TEST_F(Header, AsksAtEachStepOfADragAndTellsOfIt)
{
    const CPoint divider(149, 10);
    Drag(m_header, divider, 10);
    EXPECT_EQ(m_table.Heard(), "-320 of 1: 60, -321 of 1: 60");
    m_table.m_answer = 1;
    Drag(m_header, {159, 10}, 5);
    EXPECT_EQ(m_table.Heard(), "-320 of 1: 65");
    EXPECT_EQ(ItemAt(1), "file  60 2");
    m_table.m_answer = 0;
    Drag(m_header, {159, 10}, -100);
    test::ReleaseMouse(m_header, {59, 10});
    EXPECT_EQ(m_table.Heard(), "-320 of 1: 0, -321 of 1: 0");
    EXPECT_EQ(ItemAt(0), "tree 100 0");
    Drag(m_header, {101, 10}, 30); // the column that has no width can be pulled out again
    EXPECT_EQ(m_table.Heard(), "-320 of 1: 30, -321 of 1: 30");
}

TEST_F(Header, TellsOfClicksOnItems)
{
    const auto click = [this](int x) {
        test::PressMouse(m_header, {x, 10});
        test::ReleaseMouse(m_header, {x, 10});
        return m_table.Heard();
    };
    const auto doubleClick = [this](int x) {
        QWidget& widget = WindowSide::Of(m_header.m_hWnd)->Client();
        QMouseEvent twice(QEvent::MouseButtonDblClick, QPointF(x, 10), widget.mapToGlobal(QPointF(x, 10)),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&widget, &twice);
        test::ReleaseMouse(m_header, {x, 10});
        return m_table.Heard();
    };
    EXPECT_EQ(click(125), "-322 of 1");
    EXPECT_EQ(doubleClick(125), "-323 of 1");
    EXPECT_EQ(click(149) + doubleClick(149), ""); // a divider
    EXPECT_EQ(click(250) + doubleClick(250), ""); // right of all items
    test::PressMouse(m_header, {50, 10});
    test::ReleaseMouse(m_header, {125, 10});
    EXPECT_EQ(m_table.Heard(), "");
    Make(0);
    EXPECT_EQ(click(125), "");
}

} // namespace
