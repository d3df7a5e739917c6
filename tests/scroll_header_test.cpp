// The controls around a table: its scroll bar and its header.
#include "support/Gui.h"

#include <QtWidgets>
#include <afxcmn.h>
#include <array>

namespace
{

using test::Heard;

constexpr DWORD ofChild = WS_CHILD | WS_VISIBLE;
constexpr UINT barId = 3;
constexpr UINT headerId = 1;

// Records the notifications of its controls.
class k_Table : public CWnd
{
public:
    k_Table()
    {
        CreateEx(0, AfxRegisterWndClass(0), _T(""), WS_POPUP | WS_VISIBLE, 0, 0, 400, 200, nullptr, 0);
    }

    int m_moveTo = -1; // the position that it sets at a notification
    bool m_throws = false;
    LRESULT m_answer = 0;

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override
    {
        const auto& told = *reinterpret_cast<const NMHEADERW*>(lParam);
        EXPECT_EQ(told.hdr.idFrom, wParam);
        test::Note(std::to_string(static_cast<int>(told.hdr.code)) + " of " + std::to_string(told.iItem) +
                   (told.pitem != nullptr && told.pitem->mask == HDI_WIDTH
                        ? ": " + std::to_string(told.pitem->cxy)
                        : ""));
        *pResult = m_answer;
        return TRUE;
    }
    afx_msg void OnHScroll(UINT code, UINT position, CWnd* bar)
    {
        test::Note(std::to_string(code) + (position != 0 ? " at " + std::to_string(position) : ""));
        SCROLLINFO info{0, SIF_POS, 0, 0, 0, m_moveTo, 0};
        if (m_moveTo >= 0)
            bar->SetScrollInfo(SB_CTL, &info);
        if (m_throws)
            AfxThrowInvalidArgException();
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(k_Table, CWnd)
ON_WM_HSCROLL()
END_MESSAGE_MAP()

// Presses at the point, and moves with the button held.
void Drag(CWnd& window, CPoint from, int distance)
{
    test::PressMouse(window, from);
    test::DragMouse(window, {from.x + distance, from.y});
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

    using Setting = std::array<int, 4>; // least, most, page, position
    int Set(UINT mask, const Setting& to)
    {
        const SCROLLINFO info{sizeof info, mask, to[0], to[1], UINT(to[2]), to[3], 0};
        return ::SetScrollInfo(m_bar.m_hWnd, SB_CTL, &info, TRUE);
    }
    Setting Get()
    {
        SCROLLINFO info{};
        EXPECT_TRUE(m_bar.GetScrollInfo(SB_CTL, &info));
        return {info.nMin, info.nMax, int(info.nPage), info.nPos};
    }
    int Position() { return ::GetScrollPos(m_bar.m_hWnd, SB_CTL); }

    k_Table m_table;
    CScrollBar m_bar;
};

TEST_F(ScrollBar, TellsWhatTheUserDoesAndStaysWhereItIs)
{
    // The arrows, and left and right of the thumb.
    const std::pair<int, const char*> clicks[] = {{5, "0, 8"}, {295, "1, 8"}, {26, "2, 8"}, {200, "3, 8"}};
    for (const auto& [x, heard] : clicks) {
        test::Click(m_bar, {x, 8});
        EXPECT_EQ(Heard(), heard);
        EXPECT_EQ(Position(), 100);
    }
    m_table.m_moveTo = 160;
    test::TurnWheel(m_bar, -120);
    EXPECT_EQ(Heard(), "5 at 160, 8");
    m_table.m_throws = true;
    EXPECT_NO_THROW(test::TurnWheel(m_bar, -120));
    EXPECT_EQ(Heard(), "5 at 220, 8"); // each is sent separately
}

TEST_F(ScrollBar, LooksLikeAnyOtherOfTheDesktop)
{
    test::MoveMouse(m_table, {1, 1});
    for (const char* const style : {"fusion", "windows"}) {
        QApplication::setStyle(style);
        QScrollBar other(Qt::Horizontal);
        other.resize(300, 17);
        other.setRange(0, 700);
        other.setPageStep(300);
        for (const int position : {100, 650}) {
            Set(SIF_POS, {0, 0, 0, position});
            other.setValue(position);
            EXPECT_EQ(test::PictureOf(m_bar).convertToFormat(QImage::Format_RGB32),
                      other.grab().toImage().convertToFormat(QImage::Format_RGB32))
                << style << position;
        }
    }
    QApplication::setStyle("fusion");
}

TEST_F(ScrollBar, FollowsTheThumb)
{
    Drag(m_bar, {80, 8}, 30);
    const int position = Position();
    EXPECT_TRUE(position > 100 && position < 700) << position;
    test::ReleaseMouse(m_bar, {110, 8});
    const std::string at = std::to_string(position);
    EXPECT_EQ(Heard(), "5 at " + at + ", 4 at " + at + ", 8");
    EXPECT_EQ(Position(), position);
}

TEST_F(ScrollBar, KeepsItsPositionWithinItsRange)
{
    constexpr UINT all = SIF_RANGE | SIF_PAGE | SIF_POS;
    const std::tuple<UINT, Setting, Setting> cases[] = {
        {all, {0, 999, 300, 701}, {0, 999, 300, 700}},
        {SIF_PAGE, {7, 7, 1, 7}, {0, 999, 1, 700}},
        {SIF_POS, {7, 7, 7, -1}, {0, 999, 1, 0}},
        {all, {0, 200, 300, 5}, {0, 200, 201, 0}}, // all is seen
        {SIF_RANGE, {10, 5, 0, 0}, {0, 0, 1, 0}},
        {all, {-5, 20, 5, -9}, {-5, 20, 5, -5}}};
    for (const auto& [mask, to, result] : cases) {
        EXPECT_EQ(Set(mask, to), result[3]);
        EXPECT_EQ(Get(), result) << result[1];
    }
    EXPECT_EQ(Heard(), "");
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
        const auto at = static_cast<WPARAM>(index);
        if (m_header.SendMessage(HDM_GETITEMW, at, reinterpret_cast<LPARAM>(&item)) == FALSE)
            return "none";
        return QString::fromUtf16(text).toStdString() + ' ' + std::to_string(item.cxy) + ' ' +
               std::to_string(item.fmt);
    }

    k_Table m_table;
    CHeaderCtrl m_header;
};

TEST_F(Header, KeepsItsItems)
{
    m_header.MoveWindow(-20, 0, 90, 24);
    test::Settle();
    // No more of a text than there is room for.
    EXPECT_EQ(ItemAt(0) + ", " + ItemAt(1) + ", " + ItemAt(2), "tree 100 0, file  50 2, file  60 1");
    EXPECT_EQ(ItemAt(3) + ItemAt(-1), "nonenone");
    EXPECT_EQ(m_header.SendMessage(HDM_INSERTITEMW), -1);
    Insert(0, nullptr, -5, 7);
    EXPECT_EQ(ItemAt(0), " 0 0");
    EXPECT_EQ(Heard(), "");
}

TEST_F(Header, AsksAtEachStepOfADragAndTellsOfIt)
{
    const CPoint divider(149, 10);
    Drag(m_header, divider, 10);
    EXPECT_EQ(Heard(), "-320 of 1: 60, -321 of 1: 60");
    m_table.m_answer = 1;
    Drag(m_header, {159, 10}, 5);
    EXPECT_EQ(Heard(), "-320 of 1: 65");
    EXPECT_EQ(ItemAt(1), "file  60 2");
    m_table.m_answer = 0;
    Drag(m_header, {159, 10}, -100);
    test::ReleaseMouse(m_header, {59, 10});
    EXPECT_EQ(Heard(), "-320 of 1: 0, -321 of 1: 0");
    EXPECT_EQ(ItemAt(0), "tree 100 0");
    Drag(m_header, {101, 10}, 30); // the column that has no width can be pulled out again
    EXPECT_EQ(Heard(), "-320 of 1: 30, -321 of 1: 30");
}

TEST_F(Header, TellsOfClicksOnItems)
{
    for (const int x : {125, 149, 250}) // the last two: a divider, and right of all items
        test::ClickTwice(m_header, {x, 10});
    EXPECT_EQ(Heard(), "-322 of 1, -323 of 1");
    test::PressMouse(m_header, {50, 10});
    test::ReleaseMouse(m_header, {125, 10});
    Make(0);
    test::Click(m_header, {125, 10});
    EXPECT_EQ(Heard(), "");
}

} // namespace
