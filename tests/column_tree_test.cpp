// The column tree in its dialog: where its windows stand, how it scrolls, what is selected and what opens for
// editing.
#include "support/AtlasDialog.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <gtest/gtest.h>
#include <model/QuantityDesc.h>

namespace
{

using test::editRequests;

// Of the outline of the tests: 0 and 5 stand at the top, 1 and 4 below 0, 2 and 3 below 1.
constexpr std::initializer_list<BYTE> outline = {0, 1, 2, 2, 1, 0};

class ColumnTree : public testing::Test
{
protected:
    ColumnTree() { editRequests.clear(); }

    k_ColumnTreeCtrl& Frame() { return m_dialog.m_ColumnTree; }
    k_CustomTreeChildCtrl& Tree() { return Frame().m_Tree; }
    // Left, top, right and bottom in the frame.
    std::vector<int> PlaceOf(CWnd& window)
    {
        CRect place;
        window.GetWindowRect(&place);
        Frame().ScreenToClient(&place);
        return {place.left, place.top, place.right, place.bottom};
    }
    void Resize(int width, int height)
    {
        Frame().MoveWindow(5, 5, width, height);
        test::Settle();
    }
    void Click(CPoint point)
    {
        test::PressMouse(Tree(), point);
        test::ReleaseMouse(Tree(), point);
    }
    // The state that clicks and keys move.
    std::string Selection()
    {
        std::string text = "cell " + std::to_string(Frame().m_cellColumn) + " of ";
        text += Frame().m_cellItem == nullptr ? "none" : RowName(Frame().m_cellItem);
        text += ", column " + std::to_string(Frame().m_selectedColumn);
        const HTREEITEM caret = Tree().GetNextItem(nullptr, TVGN_CARET);
        return text + (caret == nullptr ? "" : ", row " + RowName(caret));
    }
    std::string RowName(HTREEITEM row)
    {
        const k_QuantityDesc* const pRow = Frame().GetRowData(row);
        return pRow == nullptr ? "?" : std::to_string(pRow->Quantity - 1);
    }
    void Fold(HTREEITEM row) { Tree().Expand(row, TVE_COLLAPSE); }

    test::AtlasDialog m_dialog;
};

TEST_F(ColumnTree, HangsEachRowWhereItsLevelSays)
{
    // Level 2 hangs below the last row of level 1, however far back; without one it stands at the top.
    test::SetTable({2, 1, 0, 3, 1, 0, 2, 1, 0});
    m_dialog.RunInside([&] {
        std::string shown;
        for (HTREEITEM row = m_dialog.Row(0); row != nullptr; row = Tree().GetNextTreeItem(row)) {
            const HTREEITEM parent = Tree().GetNextItem(row, TVGN_PARENT);
            shown += RowName(row) + "<" + (parent == nullptr ? "-" : RowName(parent)) + " ";
            EXPECT_EQ(Tree().GetItemText(row), m_dialog.m_Atlas.GetRowLabel(std::stoi(RowName(row))));
        }
        EXPECT_EQ(shown, "0<- 1<- 3<1 2<- 4<2 6<4 5<- 7<5 8<- ");
        m_dialog.m_Atlas.GetRow(0)->Level = 7;
        delete m_dialog.m_Atlas.GetRow(5);
        m_dialog.m_Atlas.Rows.SetAt(5, nullptr);
        Click(m_dialog.CellAt(m_dialog.Row(0), 2));
        EXPECT_EQ(Selection(), "cell 2 of 0, column -1");
        m_dialog.FillTree();
        EXPECT_EQ(Selection(), "cell -1 of none, column -1");
        EXPECT_EQ(RowName(m_dialog.Row(4)), "4") << "an empty slot is passed over";
        EXPECT_EQ(Tree().GetNextItem(m_dialog.Row(0), TVGN_PARENT), nullptr);
    });
}

TEST_F(ColumnTree, PlacesItsWindows)
{
    test::SetTable(outline);
    m_dialog.RunInside([&] {
        const int head = Frame().m_headerHeight;
        const int bar = ::GetSystemMetrics(SM_CXVSCROLL);
        ASSERT_GT(head, 0);
        EXPECT_EQ(Frame().m_totalWidth, 150 + 4 * 60);

        Resize(400, 300); // room for all
        EXPECT_EQ(PlaceOf(Frame().m_Header), (std::vector{0, 0, 400, head}));
        EXPECT_EQ(PlaceOf(Tree()), (std::vector{0, head, 400, 300}));
        EXPECT_FALSE(test::IsShown(Frame().m_HorScroll));
        EXPECT_FALSE(test::IsShown(Frame().m_CornerHeader));

        Resize(300, 300); // too narrow
        Frame().SendMessage(WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 30));
        EXPECT_EQ(PlaceOf(Frame().m_Header), (std::vector{-30, 0, 300, head}));
        EXPECT_EQ(PlaceOf(Tree()), (std::vector{-30, head, 300, 300 - bar}));
        EXPECT_EQ(PlaceOf(Frame().m_HorScroll), (std::vector{0, 300 - bar, 300, 300}));
        EXPECT_TRUE(test::IsShown(Frame().m_HorScroll));

        Resize(300, head + bar - 1); // and too low for the bar; now the rows don't fit
        EXPECT_FALSE(test::IsShown(Frame().m_HorScroll));
        EXPECT_EQ(PlaceOf(Tree()), (std::vector{-30, head, 300, head + bar - 1}));

        Resize(300, head + bar + 40); // a vertical bar
        EXPECT_TRUE(test::IsShown(Frame().m_CornerHeader));
        EXPECT_EQ(PlaceOf(Frame().m_CornerHeader), (std::vector{300 - bar, 0, 300, head}));
        EXPECT_EQ(PlaceOf(Frame().m_Header), (std::vector{-30, 0, 300 - bar, head}));
        EXPECT_EQ(PlaceOf(Frame().m_HorScroll), (std::vector{0, head + 40, 300 - bar, head + 40 + bar}));
        EXPECT_EQ(test::PixelOf(Frame(), CPoint(299, head + 40 + bar - 1)), ::GetSysColor(COLOR_BTNFACE));

        Resize(400, 300);
        test::ChangeSettings();
        EXPECT_EQ(Frame().m_Header.GetFont(),
                  CFont::FromHandle(static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT))));
        EXPECT_EQ(PlaceOf(Tree()), (std::vector{0, Frame().m_headerHeight, 400, 300}));
    });
}

TEST_F(ColumnTree, ScrollsByEachCode)
{
    test::SetTable(outline, 32);
    m_dialog.RunInside([&] {
        Resize(400, 300);
        const int end = 150 + 32 * 60 - 400;
        const struct {
            UINT Code;
            int Position;
            int Cell;
            int Expected;
        } steps[] = {
            {SB_LINELEFT, 0, -1, 0},     {SB_LINERIGHT, 0, -1, 60},     {SB_LINERIGHT, 0, 0, 210},
            {SB_LINELEFT, 0, 3, 150},    {SB_PAGERIGHT, 0, -1, 550},    {SB_PAGELEFT, 0, -1, 150},
            {SB_THUMBTRACK, 77, -1, 77}, {SB_THUMBPOSITION, 9, -1, 77}, {SB_ENDSCROLL, 0, -1, 77},
            {SB_RIGHT, 0, -1, end},      {SB_PAGERIGHT, 0, -1, end},    {SB_THUMBTRACK, 9999, -1, end},
            {SB_LEFT, 0, -1, 0}};
        for (const auto& step : steps) {
            Frame().m_cellColumn = step.Cell;
            Frame().SendMessage(WM_HSCROLL, MAKEWPARAM(step.Code, static_cast<UINT>(step.Position)));
            EXPECT_EQ(Frame().m_xOffset, step.Expected) << "code " << step.Code;
            EXPECT_EQ(PlaceOf(Tree()).front(), -step.Expected);
            EXPECT_EQ(PlaceOf(Frame().m_Header).front(), -step.Expected);
        }
        EXPECT_EQ(Frame().InsertColumn(33, _T("one too many"), 0, 60), -1);
    });
}

TEST_F(ColumnTree, GuardsTheWidths)
{
    test::SetTable(outline);
    m_dialog.RunInside([&] {
        const auto tell = [&](int code, int item, int width, int& changed) {
            HDITEMW heading{};
            heading.mask = HDI_WIDTH;
            heading.cxy = width;
            NMHEADERW told{{Frame().m_Header.m_hWnd, 1, static_cast<UINT>(code)}, item, 0, &heading};
            const LRESULT result = Frame().SendMessage(WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&told));
            changed = heading.cxy;
            return result;
        };
        const struct {
            int Item;
            int Width;
            LRESULT Refused;
            int Changed;
        } steps[] = {{0, 200, 1, 200}, {0, 100, 0, 100}, {0, 99, 1, 101}, {1, 0, 0, 0}, {0, -5, 1, 101}};
        for (const auto& step : steps) {
            int changed = 0;
            EXPECT_EQ(tell(HDN_ITEMCHANGINGW, step.Item, step.Width, changed), step.Refused) << step.Width;
            EXPECT_EQ(changed, step.Changed);
        }
        int changed = 0;
        tell(HDN_ITEMCHANGEDW, 1, 60, changed);
        EXPECT_EQ(tell(HDN_ITEMCHANGINGW, 1, 70, changed), 1) << "every change refuses the next one";
        EXPECT_EQ(tell(HDN_ITEMCHANGINGW, 1, 70, changed), 0);
        EXPECT_TRUE(std::ranges::none_of(m_dialog.Notifications, [](const auto& each) {
            return each.Code == HDN_ITEMCHANGINGW || each.Code == HDN_ITEMCHANGEDW;
        }));
    });
}

TEST_F(ColumnTree, FindsTheColumnOfAPoint)
{
    test::SetTable(outline);
    m_dialog.RunInside([&] {
        const int y = m_dialog.LabelAt(m_dialog.Row(5)).y + Frame().m_headerHeight;
        const struct {
            int X;
            int Column; // -1: none
        } points[] = {{140, 0}, {150, 0}, {151, 1}, {210, 1}, {211, 2}, {390, 4}, {391, -1}};
        for (const auto& each : points) {
            CTVHITTESTINFO info{{each.X, y}, 0, nullptr, 0};
            const HTREEITEM row = Frame().HitTest(&info);
            EXPECT_EQ(row, each.Column < 0 ? nullptr : m_dialog.Row(5)) << each.X;
            EXPECT_EQ(info.flags, each.Column < 0 ? TVHT_NOWHERE : TVHT_ONITEMLABEL);
            EXPECT_EQ(each.Column < 0 ? -1 : info.iSubItem, each.Column) << each.X;
        }
        CTVHITTESTINFO below{{200, 200 + Frame().m_headerHeight}, 0, nullptr, 5};
        EXPECT_EQ(Frame().HitTest(&below), nullptr);
        EXPECT_EQ(below.iSubItem, 0);
    });
}

TEST_F(ColumnTree, SelectsByClicks)
{
    test::SetTable(outline);
    m_dialog.RunInside([&] {
        Click(m_dialog.LabelAt(m_dialog.Row(1)));
        EXPECT_EQ(Selection(), "cell -1 of none, column -1, row 1");
        Click(m_dialog.CellAt(m_dialog.Row(2), 3));
        EXPECT_EQ(Selection(), "cell 3 of 2, column -1");
        Click({395, m_dialog.LabelAt(m_dialog.Row(2)).y}); // right of all columns
        EXPECT_EQ(Selection(), "cell 3 of 2, column -1");
        Click({145, m_dialog.LabelAt(m_dialog.Row(5)).y}); // beside the label
        EXPECT_EQ(Selection(), "cell 0 of 5, column -1");
        test::PressKey(Tree(), VK_LEFT);
        EXPECT_EQ(Selection(), "cell -1 of 5, column -1");

        m_dialog.Notifications.clear();
        const CPoint heading(150 + 60 + 30, 5);
        test::PressMouse(Frame().m_Header, heading);
        test::ReleaseMouse(Frame().m_Header, heading);
        EXPECT_EQ(Selection(), "cell -1 of 5, column 2");
        EXPECT_TRUE(m_dialog.Notifications.empty());
        Click(m_dialog.LabelAt(m_dialog.Row(0)));
        EXPECT_EQ(Selection(), "cell -1 of none, column -1, row 0");

        QTimer::singleShot(0, [] { QApplication::activePopupWidget()->close(); });
        test::ClickRight(Tree(), m_dialog.CellAt(m_dialog.Row(1), 1));
        ASSERT_FALSE(m_dialog.Notifications.empty());
        EXPECT_EQ(m_dialog.Notifications.back().Code, NM_RCLICK);
        EXPECT_EQ(m_dialog.Notifications.back().Id, 1001U);
        EXPECT_EQ(m_dialog.Notifications.back().From, Frame().m_hWnd);
    });
}

TEST_F(ColumnTree, WalksByKeys)
{
    test::SetTable(outline);
    const struct {
        const char* Name;
        int Cell, Row, Column; // at the start
        UINT Key;
        const char* Selection;
    } steps[] = {
        {"left", 3, 2, -1, VK_LEFT, "cell 2 of 2, column -1"},
        {"left out of the cells", 1, 2, -1, VK_LEFT, "cell -1 of 2, column -1"},
        {"right", 3, 2, -1, VK_RIGHT, "cell 4 of 2, column -1"},
        {"right at the end", 4, 2, -1, VK_RIGHT, "cell 4 of 2, column -1"},
        {"up", 2, 4, -1, VK_UP, "cell 2 of 3, column -1"},
        {"up at the top", 2, 0, -1, VK_UP, "cell 2 of 0, column -1"},
        {"down", 2, 4, -1, VK_DOWN, "cell 2 of 5, column -1"},
        {"down at the end", 2, 5, -1, VK_DOWN, "cell 2 of 5, column -1"},
        {"another key", 2, 4, -1, VK_SPACE, "cell 2 of 4, column -1"},
        {"column left", -1, 4, 2, VK_LEFT, "cell -1 of 4, column 1"},
        {"column left to the tree", -1, 4, 1, VK_LEFT, "cell -1 of 4, column 0"},
        {"column right", -1, 4, 3, VK_RIGHT, "cell -1 of 4, column 4"},
        {"column right at the end", -1, 4, 4, VK_RIGHT, "cell -1 of 4, column 4"},
        {"column up", -1, 4, 3, VK_UP, "cell -1 of 4, column 3"},
    };
    m_dialog.RunInside([&] {
        for (const auto& step : steps) {
            Frame().m_cellColumn = step.Cell;
            Frame().m_cellItem = m_dialog.Row(step.Row);
            Frame().m_selectedColumn = step.Column;
            test::PressKey(Tree(), step.Key);
            EXPECT_EQ(Selection(), step.Selection) << step.Name;
        }
        Frame().ClearSelection();
        Tree().Select(m_dialog.Row(0), TVGN_CARET);
        test::PressKey(Tree(), VK_DOWN);
        EXPECT_EQ(Selection(), "cell -1 of none, column -1, row 1") << "the tree's own key";

        Click(m_dialog.CellAt(m_dialog.Row(0), 2));
        test::PressKey(Tree(), VK_SUBTRACT);
        EXPECT_EQ(RowName(m_dialog.Row(1)), "5");
        EXPECT_EQ(m_dialog.Notifications.back().Code, TVN_ITEMEXPANDEDW);
        test::PressKey(Tree(), VK_ADD);
        EXPECT_EQ(RowName(m_dialog.Row(1)), "1");
        test::PressKey(Tree(), VK_ESCAPE);
        EXPECT_FALSE(test::IsShown(m_dialog)) << "the dialog's own key";
    });
}

TEST_F(ColumnTree, ScrollsWithTheSelectedCell)
{
    test::SetTable(outline, 32);
    m_dialog.RunInside([&] {
        Resize(400, 300);
        Click(m_dialog.CellAt(m_dialog.Row(0), 1));
        std::vector<int> offsets;
        for (int i = 0; i < 4; ++i) {
            test::PressKey(Tree(), VK_RIGHT);
            offsets.push_back(Frame().m_xOffset);
        }
        for (int i = 0; i < 5; ++i) {
            test::PressKey(Tree(), VK_LEFT);
            offsets.push_back(Frame().m_xOffset);
        }
        // The edges are counted from the left of the window, whatever is scrolled: 150 + 150, then 60 a
        // column.
        EXPECT_EQ(offsets, (std::vector{0, 60, 120, 180, 120, 120, 120, 120, 0}));
    });
}

TEST_F(ColumnTree, OpensTheStylesOfEachGesture)
{
    test::SetTable(outline);
    m_dialog.RunInside([&] {
        const auto style = [&](int row, int column) { return m_dialog.Style(row, column); };
        const auto desc = [&](int row) { return m_dialog.m_Atlas.GetRow(row); };
        const auto last = [&] { return editRequests.back(); };
        const auto rows = [&](std::initializer_list<int> numbers) {
            std::vector<const k_LineDef*> all;
            for (const int row : numbers) {
                for (int column = 0; column < desc(row)->GetStyles()->GetSize(); ++column)
                    all.push_back(desc(row)->GetStyles()->GetAt(column));
            }
            return all;
        };
        using Styles = std::vector<const k_LineDef*>;

        test::ClickTwice(Tree(), m_dialog.CellAt(m_dialog.Row(0), 2)); // unfolded: itself alone
        EXPECT_EQ(last().Styles, Styles{style(0, 1)});
        EXPECT_EQ(last().Quantity, desc(0));
        EXPECT_EQ(last().Parent, &Frame());
        EXPECT_EQ(Selection(), "cell 2 of 0, column -1");

        test::ClickTwice(Tree(), m_dialog.LabelAt(m_dialog.Row(5))); // the row's own list
        EXPECT_EQ(last().List, desc(5)->GetStyles());
        EXPECT_EQ(last().Quantity, desc(5));
        test::ClickTwice(Tree(), m_dialog.LabelAt(m_dialog.Row(0)));
        EXPECT_EQ(last().List, desc(0)->GetStyles());

        const CPoint inPart = m_dialog.LabelAt(m_dialog.Row(4));
        Resize(500, Frame().m_headerHeight + inPart.y + 1);
        test::ClickTwice(Tree(), inPart); // the row stays where it is
        EXPECT_EQ(last().Quantity, desc(4));
        Resize(400, 300);

        const HTREEITEM group = m_dialog.Row(0);
        Fold(group);
        test::ClickTwice(Tree(), m_dialog.CellAt(group, 4)); // folded: and its direct children
        EXPECT_EQ(last().Styles, (Styles{style(0, 3), style(1, 3), style(4, 3)}));
        test::ClickTwice(Tree(), m_dialog.LabelAt(group)); // folded: two levels below, all columns
        EXPECT_EQ(last().Styles, rows({0, 1, 2, 3, 4}));
        EXPECT_EQ(last().Quantity, desc(0));

        Frame().SetCellData(Tree().GetNextItem(group, TVGN_CHILD), 0, nullptr);
        test::ClickTwice(Tree(), m_dialog.CellAt(group, 4));
        EXPECT_EQ(last().Styles, (Styles{style(0, 3), nullptr, style(4, 3)}));

        test::ClickTwice(Frame().m_Header, CPoint(150 + 30, 5)); // all rows of a column, folded ones too
        EXPECT_EQ(last().Styles,
                  (Styles{style(0, 0), nullptr, style(2, 0), style(3, 0), style(4, 0), style(5, 0)}));
        EXPECT_EQ(last().Quantity, nullptr);
        EXPECT_EQ(last().Parent, &m_dialog);
        EXPECT_EQ(Frame().m_selectedColumn, 1);

        const std::size_t before = editRequests.size();
        test::ClickTwice(Frame().m_Header, CPoint(20, 5));
        EXPECT_EQ(Frame().m_selectedColumn, 0);
        test::ClickTwice(Tree(), CPoint(145, m_dialog.LabelAt(group).y));
        test::ClickTwice(Tree(), CPoint(395, m_dialog.LabelAt(group).y));
        EXPECT_EQ(editRequests.size(), before);
        for (const HTREEITEM row : {m_dialog.Row(0), m_dialog.Row(1)})
            EXPECT_NE(Frame().GetRowData(row), nullptr);
    });
}

TEST_F(ColumnTree, NamesTheRowUnderTheMouse)
{
    test::SetTable(outline);
    m_dialog.RunInside([&] {
        const auto ask = [&] {
            NMTTDISPINFOW info{};
            info.hdr = {Tree().m_hWnd, 2, static_cast<UINT>(TTN_NEEDTEXTW)};
            std::ranges::fill(info.szText, u'#');
            EXPECT_EQ(Tree().SendMessage(WM_NOTIFY, 2, reinterpret_cast<LPARAM>(&info)), 0);
            return CString(info.szText);
        };
        test::MoveMouse(Tree(), m_dialog.LabelAt(m_dialog.Row(5)));
        EXPECT_EQ(ask(), _T("")) << "no device to name";
        const CString longText(std::u16string(200, u'x').c_str());
        const HTREEITEM added = Frame().InsertItem(longText, TVI_ROOT);
        test::MoveMouse(Tree(), m_dialog.LabelAt(added));
        EXPECT_EQ(ask(), CString(longText, 79)) << "a row without data shows its own text, as far as it fits";
        test::MoveMouse(Tree(), CPoint(100, 280));
        EXPECT_EQ(ask(), _T(""));
    });
}

} // namespace
