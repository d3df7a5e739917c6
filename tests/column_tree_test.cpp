// The column tree in its dialog: where its windows stand, how it scrolls, what is selected, what opens for
// editing, and which tables it has to stand.
#include "support/AtlasDialog.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <dialogs/resource.h>

namespace
{

using test::editRequests;

class ColumnTree : public test::ColumnTreeTest
{
protected:
    // 0 and 5 stand at the top, 1 and 4 below 0, 2 and 3 below 1.
    ColumnTree() { SetOutline(4); }

    static void SetOutline(DWORD columns) { test::SetTable({0, 1, 2, 2, 1, 0}, columns); }

    // Left, top, right and bottom in the frame; nothing where it is hidden.
    std::vector<int> PlaceOf(CWnd& window)
    {
        CRect place = test::PlaceOf(window);
        Frame().ScreenToClient(&place);
        return test::WidgetOf(window).isVisible()
                   ? std::vector<int>{place.left, place.top, place.right, place.bottom}
                   : std::vector<int>();
    }
    void Resize(int width, int height)
    {
        Frame().MoveWindow(5, 5, width, height);
        test::Settle();
    }
    void Click(CPoint point) { test::Click(Tree(), point); }
    LRESULT Scroll(UINT code, int position)
    {
        return Frame().SendMessage(WM_HSCROLL, MAKEWPARAM(code, static_cast<UINT>(position)));
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
    void ExpectInView(HTREEITEM row)
    {
        CRect label, shown;
        Tree().GetItemRect(row, &label, TRUE);
        Tree().GetClientRect(&shown);
        EXPECT_TRUE(label.top >= 0 && label.bottom <= shown.bottom) << RowName(row) << " at " << label.top;
    }
    // All rows, folded ones too, each with the one that it hangs below.
    std::string Hierarchy()
    {
        std::string shown;
        for (HTREEITEM row = Row(0); row != nullptr; row = Tree().GetNextTreeItem(row)) {
            const HTREEITEM parent = Tree().GetNextItem(row, TVGN_PARENT);
            shown += RowName(row) + "<" + (parent == nullptr ? "-" : RowName(parent)) + " ";
        }
        return shown;
    }
};

TEST_F(ColumnTree, HangsEachRowWhereItsLevelSays)
{
    // Level 2 hangs below the last row of level 1, however far back; without one it stands at the top.
    test::SetTable({2, 1, 0, 3, 1, 0, 2, 1, 0});
    RunInside([&] {
        EXPECT_EQ(Hierarchy(), "0<- 1<- 3<1 2<- 4<2 6<4 5<- 7<5 8<- ");
        EXPECT_EQ(Tree().GetItemText(Row(2)), m_dialog.m_Atlas.GetRowLabel(3));
        m_dialog.m_Atlas.GetRow(0)->Level = 7;
        delete m_dialog.m_Atlas.GetRow(5);
        m_dialog.m_Atlas.Rows.SetAt(5, nullptr);
        Click(Cell(0, 2));
        m_dialog.FillTree();
        EXPECT_EQ(Selection(), "cell -1 of none, column -1");
        EXPECT_EQ(Hierarchy(), "0<- 1<- 3<1 2<- 4<2 6<4 7<2 8<- ") << "an empty slot is passed over";
    });
}

TEST_F(ColumnTree, PlacesItsWindows)
{
    RunInside([&] {
        const int head = Frame().m_headerHeight;
        const int bar = ::GetSystemMetrics(SM_CXVSCROLL);
        ASSERT_GT(head, 0);
        EXPECT_EQ(Frame().m_totalWidth, 150 + 4 * 60);
        const struct {
            int Width, Height;
            std::vector<int> Header, Tree, Bar, Corner;
        } cases[] = {
            {400, 300, {0, 0, 400, head}, {0, head, 400, 300}, {}, {}}, // room for all
            {300, 300, {-30, 0, 300, head}, {-30, head, 300, 300 - bar}, {0, 300 - bar, 300, 300}, {}},
            {300,
             head + bar - 1,
             {-30, 0, 300 - bar, head},
             {-30, head, 300, head + bar - 1},
             {},
             {300 - bar, 0, 300, head}}, // too low for the bar
            {300,
             head + bar + 40,
             {-30, 0, 300 - bar, head},
             {-30, head, 300, head + 40},
             {0, head + 40, 300 - bar, head + 40 + bar},
             {300 - bar, 0, 300, head}},
        };
        for (const auto& each : cases) {
            Resize(each.Width, each.Height);
            if (each.Height == 300)
                Scroll(SB_THUMBTRACK, 30); // which stays
            EXPECT_EQ(PlaceOf(Frame().m_Header), each.Header) << &each - cases;
            EXPECT_EQ(PlaceOf(Tree()), each.Tree) << &each - cases;
            EXPECT_EQ(PlaceOf(Frame().m_HorScroll), each.Bar) << &each - cases;
            EXPECT_EQ(PlaceOf(Frame().m_CornerHeader), each.Corner) << &each - cases;
            const auto& scrollBar = dynamic_cast<QScrollBar&>(test::WidgetOf(Frame().m_HorScroll));
            EXPECT_TRUE(each.Bar.empty() || scrollBar.pageStep() == each.Width);
        }
        const QImage corner = test::PictureOf(Frame().m_CornerHeader);
        EXPECT_NE(corner.pixel(1, head - 1), corner.pixel(1, 9)) << "no heading";
        for (int x = 0; x < bar; ++x)
            EXPECT_GT(qGray(corner.pixel(x, head / 2)), 128) << "with a text";
        {
            constexpr COLORREF face = RGB(120, 120, 0); // of buttons, other than the dialog's
            const test::DesktopColors other({{QPalette::Button, face}});
            EXPECT_EQ(test::PixelOf(Frame(), CPoint(299, head + 40 + bar - 1)), face);
        }
        Resize(400, head + 60);
        Tree().Expand(Row(0), TVE_COLLAPSE);
        EXPECT_TRUE(PlaceOf(Frame().m_CornerHeader).empty()) << "the folded rows have room";
        Tree().Expand(Row(0), TVE_EXPAND);
        Resize(400, 300);
        EXPECT_EQ(Frame().m_xOffset, 0);
        const auto& headings = dynamic_cast<QHeaderView&>(test::WidgetOf(Frame().m_Header));
        EXPECT_EQ(headings.model()->headerData(2, Qt::Horizontal).toString(), "file 2");
        test::ChangeSettings();
        EXPECT_EQ(Frame().m_Header.GetFont(),
                  CFont::FromHandle(static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT))));
        EXPECT_EQ(PlaceOf(Tree()), (std::vector{0, Frame().m_headerHeight, 400, 300}));
    });
}

TEST_F(ColumnTree, ScrollsByEachCode)
{
    SetOutline(32);
    RunInside([&] {
        Resize(400, 300);
        const int end = 150 + 32 * 60 - 400;
        const struct {
            UINT Code;
            int Position, Cell, Expected;
        } steps[] = {
            {SB_LINELEFT, 0, -1, 0},     {SB_LINERIGHT, 0, -1, 60},     {SB_LINERIGHT, 0, 0, 210},
            {SB_LINELEFT, 0, 3, 150},    {SB_PAGERIGHT, 0, -1, 550},    {SB_PAGELEFT, 0, -1, 150},
            {SB_THUMBTRACK, 77, -1, 77}, {SB_THUMBPOSITION, 9, -1, 77}, {SB_ENDSCROLL, 0, -1, 77},
            {SB_RIGHT, 0, -1, end},      {SB_PAGERIGHT, 0, -1, end},    {SB_THUMBTRACK, 9999, -1, end},
            {SB_LEFT, 0, -1, 0}};
        for (const auto& step : steps) {
            Frame().m_cellColumn = step.Cell;
            Scroll(step.Code, step.Position);
            EXPECT_EQ(Frame().m_xOffset, step.Expected) << "code " << step.Code;
            EXPECT_EQ(PlaceOf(Tree()).front(), -step.Expected);
            EXPECT_EQ(PlaceOf(Frame().m_Header).front(), -step.Expected);
        }
        EXPECT_EQ(Frame().InsertColumn(33, _T("one too many"), 0, 60), -1);
        // The edges of a selected cell are counted from the left of the window, whatever is scrolled: 150 +
        // 150, then 60 a column.
        Click(Cell(0, 1));
        std::vector<int> offsets;
        for (int i = 0; i < 9; ++i) {
            test::PressKey(Tree(), i < 4 ? VK_RIGHT : VK_LEFT);
            offsets.push_back(Frame().m_xOffset);
        }
        EXPECT_EQ(offsets, (std::vector{0, 60, 120, 180, 120, 120, 120, 120, 0}));
    });
}

TEST_F(ColumnTree, GuardsTheWidths)
{
    RunInside([&] {
        const auto tell = [&](int code, int item, int width) {
            HDITEMW heading{};
            heading.mask = HDI_WIDTH;
            heading.cxy = width;
            NMHEADERW told{{Frame().m_Header.m_hWnd, 1, static_cast<UINT>(code)}, item, 0, &heading};
            const LRESULT result = Frame().SendMessage(WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&told));
            return std::pair<LRESULT, int>(result, heading.cxy);
        };
        const struct {
            int Item, Width;
            std::pair<LRESULT, int> Refused; // and what the width is changed to
        } steps[] = {
            {0, 200, {1, 200}}, {0, 100, {0, 100}}, {0, 99, {1, 101}}, {1, 0, {0, 0}}, {0, -5, {1, 101}}};
        for (const auto& step : steps)
            EXPECT_EQ(tell(HDN_ITEMCHANGINGW, step.Item, step.Width), step.Refused) << step.Width;
        tell(HDN_ITEMCHANGEDW, 1, 60);
        EXPECT_EQ(tell(HDN_ITEMCHANGINGW, 1, 70).first, 1) << "every change refuses the next one";
        EXPECT_EQ(tell(HDN_ITEMCHANGINGW, 1, 70).first, 0);
        test::Click(Frame().m_Header, {180, 5});
        EXPECT_EQ(tell(HDN_ITEMCHANGINGW, 1, 70).first, 1) << "and so does a click";
        for (const NMHDR& each : m_dialog.Notifications)
            EXPECT_TRUE(int(each.code) != HDN_ITEMCHANGINGW && int(each.code) != HDN_ITEMCHANGEDW);
    });
}

TEST_F(ColumnTree, FindsTheColumnOfAPoint)
{
    RunInside([&] {
        const int y = Label(5).y + Frame().m_headerHeight;
        const std::pair<int, int> points[] = {// and the column, -1 for none
                                              {140, 0}, {150, 0}, {151, 1}, {210, 1},
                                              {211, 2}, {390, 4}, {391, -1}};
        for (const auto& [x, column] : points) {
            CTVHITTESTINFO info{{x, y}, 0, Row(0), -1};
            EXPECT_EQ(Frame().HitTest(&info), info.hItem);
            EXPECT_EQ(info.hItem, column < 0 ? nullptr : Row(5)) << x;
            EXPECT_EQ(info.flags, column < 0 ? TVHT_NOWHERE : TVHT_ONITEMLABEL);
            EXPECT_TRUE(column < 0 || info.iSubItem == column) << x;
        }
        CTVHITTESTINFO below{{200, 200 + Frame().m_headerHeight}, 0, nullptr, 5};
        EXPECT_EQ(Frame().HitTest(&below), nullptr);
        EXPECT_EQ(below.iSubItem, 0);
    });
}

TEST_F(ColumnTree, SelectsByClicks)
{
    RunInside([&] {
        const std::pair<CPoint, const char*> clicks[] = {
            {Label(1), "cell -1 of none, column -1, row 1"},
            {Cell(2, 3), "cell 3 of 2, column -1"},
            {{395, Label(2).y}, "cell 3 of 2, column -1"}, // right of all columns
            {{145, Label(5).y}, "cell 0 of 5, column -1"}, // beside the label
        };
        for (const auto& [point, selection] : clicks) {
            Click(point);
            EXPECT_EQ(Selection(), selection);
        }
        test::PressKey(Tree(), VK_LEFT);
        m_dialog.Notifications.clear();
        test::Click(Frame().m_Header, {150 + 60 + 30, 5});
        EXPECT_EQ(Selection(), "cell -1 of 5, column 2");
        EXPECT_TRUE(m_dialog.Notifications.empty());
        Click(Label(2));
        EXPECT_EQ(Selection(), "cell -1 of none, column -1, row 2");
        test::Click(Frame().m_Header, {150 + 60 + 30, 5});
        EXPECT_EQ(Selection(), "cell -1 of none, column 2");
        Click({9, Label(0).y}); // its button
        EXPECT_EQ(Selection(), "cell -1 of none, column -1, row 0");
        EXPECT_EQ(RowName(Row(1)), "5") << "folded";
        test::Click(Frame().m_Header, {150 + 60 + 30, 5});
        m_dialog.GetDlgItem(IDOK)->SetFocus();
        Click(Cell(0, 3));
        EXPECT_EQ(Selection(), "cell 3 of 0, column -1");
        EXPECT_TRUE(test::WidgetOf(Tree()).hasFocus());
        m_dialog.GetDlgItem(IDOK)->SetFocus();
        test::WidgetOf(Tree()).setFocus(Qt::TabFocusReason);
        EXPECT_EQ(Selection(), "cell 3 of 0, column -1") << "no row is selected beside the cell";
        Tree().ModifyStyle(0, TVS_FULLROWSELECT);
        Click(Cell(0, 3));
        EXPECT_EQ(Selection(), "cell -1 of none, column -1, row 0") << "the whole row is its part";

        QTimer::singleShot(0, [] { QApplication::activePopupWidget()->close(); });
        test::ClickRight(Tree(), Cell(1, 1));
        ASSERT_FALSE(m_dialog.Notifications.empty());
        const NMHDR told = m_dialog.Notifications.back();
        EXPECT_EQ(std::tuple(int(told.code), told.idFrom, told.hwndFrom),
                  std::tuple(NM_RCLICK, 1001U, Frame().m_hWnd));
    });
}

TEST_F(ColumnTree, WalksByKeys)
{
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
    RunInside([&] {
        for (const auto& step : steps) {
            Frame().m_cellColumn = step.Cell;
            Frame().m_cellItem = Row(step.Row);
            Frame().m_selectedColumn = step.Column;
            test::PressKey(Tree(), step.Key);
            EXPECT_EQ(Selection(), step.Selection) << step.Name;
        }
        Frame().ClearSelection();
        Tree().Select(Row(0), TVGN_CARET);
        test::PressKey(Tree(), VK_DOWN);
        EXPECT_EQ(Selection(), "cell -1 of none, column -1, row 1") << "the tree's own key";

        Click(Cell(0, 2));
        test::PressKey(Tree(), VK_SUBTRACT);
        EXPECT_EQ(RowName(Row(1)), "5");
        EXPECT_EQ(int(m_dialog.Notifications.back().code), TVN_ITEMEXPANDEDW);
        test::PressKey(Tree(), VK_ADD);
        EXPECT_EQ(RowName(Row(1)), "1");
        Resize(400, Frame().m_headerHeight + Label(2).y); // room for two rows
        for (int i = 0; i < 10; ++i) {
            test::PressKey(Tree(), i < 5 ? VK_DOWN : VK_UP);
            ExpectInView(Frame().m_cellItem);
        }
        test::PressKey(Tree(), VK_ESCAPE);
        EXPECT_FALSE(test::WidgetOf(m_dialog).isVisible()) << "the dialog's own key";
    });
}

TEST_F(ColumnTree, OpensTheStylesOfEachGesture)
{
    RunInside([&] {
        using Styles = std::vector<const k_LineDef*>;
        const auto desc = [&](int row) { return m_dialog.m_Atlas.GetRow(row); };
        const auto open = [](CWnd& window, CPoint point) {
            editRequests = {{}};
            test::ClickTwice(window, point);
            return editRequests.back();
        };
        test::EditRequest last = open(Tree(), Cell(0, 2)); // unfolded: itself alone
        EXPECT_EQ(last.Styles, Styles{Style(0, 1)});
        EXPECT_EQ(last.Quantity, desc(0));
        EXPECT_EQ(last.Parent, &Frame());
        EXPECT_EQ(Selection(), "cell 2 of 0, column -1");
        for (const int row : {5, 0}) {
            last = open(Tree(), Label(row));
            EXPECT_EQ(last.List, desc(row)->GetStyles()) << "the row's own list";
            EXPECT_EQ(last.Quantity, desc(row));
        }
        const CPoint inPart = Label(4);
        Resize(500, Frame().m_headerHeight + inPart.y + 1);
        EXPECT_EQ(open(Tree(), inPart).Quantity, desc(4)) << "the row stays where it is";
        Resize(400, 300);

        Tree().Expand(Row(0), TVE_COLLAPSE);
        EXPECT_EQ(open(Tree(), Cell(0, 4)).Styles, (Styles{Style(0, 3), Style(1, 3), Style(4, 3)}))
            << "folded: and its direct children";
        Styles all;
        for (int i = 0; i < 5 * 4; ++i)
            all.push_back(Style(i / 4, i % 4));
        last = open(Tree(), Label(0));
        EXPECT_EQ(last.Styles, all) << "folded: two levels below, all columns";
        EXPECT_EQ(last.Quantity, desc(0));
        Frame().SetCellData(Tree().GetNextItem(Row(0), TVGN_CHILD), 0, nullptr);
        EXPECT_EQ(open(Tree(), Cell(0, 4)).Styles, (Styles{Style(0, 3), nullptr, Style(4, 3)}));

        auto* const other = new k_LineDef;
        delete Style(5, 0);
        Frame().SetCellData(Row(1), 1, other);
        EXPECT_EQ(Style(5, 0), other);
        last = open(Frame().m_Header, {150 + 30, 5}); // all rows of a column, folded ones too
        EXPECT_EQ(last.Styles,
                  (Styles{Style(0, 0), nullptr, Style(2, 0), Style(3, 0), Style(4, 0), Style(5, 0)}));
        EXPECT_EQ(last.Quantity, nullptr);
        EXPECT_EQ(last.Parent, &m_dialog);
        EXPECT_EQ(Frame().m_selectedColumn, 1);
        EXPECT_EQ(open(Frame().m_Header, {20, 5}).Parent, nullptr);
        EXPECT_EQ(Frame().m_selectedColumn, 0);
        for (const int x : {145, 395}) // beside the label, and right of all columns
            EXPECT_EQ(open(Tree(), {x, Label(0).y}).Parent, nullptr);
    });
}

TEST_F(ColumnTree, NamesTheRowUnderTheMouse)
{
    RunInside([&] {
        const auto ask = [&](CPoint point) {
            QWidget& client = test::ClientOf(Tree());
            const QPoint local(point.x, point.y);
            QHelpEvent event(QEvent::ToolTip, local, client.mapToGlobal(local));
            QApplication::sendEvent(&client, &event);
            return QToolTip::text();
        };
        EXPECT_EQ(ask(Label(5)), "") << "no device to name";
        EXPECT_EQ(ask({100, 280}), "");
        Frame().InsertItem(CString(std::u16string(200, u'x').c_str()), TVI_ROOT);
        EXPECT_EQ(ask(Label(6)), QString(79, 'x'))
            << "a row without data shows its own text, as far as it fits";
        NMTTDISPINFOA info{};
        info.hdr = {Tree().m_hWnd, 2, static_cast<UINT>(TTN_NEEDTEXTA)};
        EXPECT_EQ(Tree().SendMessage(WM_NOTIFY, 2, reinterpret_cast<LPARAM>(&info)), 0);
        EXPECT_EQ(info.szText, std::string(79, 'x'));
    });
}

TEST_F(ColumnTree, EnablesItsWindows)
{
    RunInside([&] {
        CWnd* const parts[] = {&Tree(), &Frame().m_Header, &Frame().m_CornerHeader, &Frame().m_HorScroll};
        for (CWnd* const part : parts)
            part->EnableWindow(FALSE);
        Frame().EnableWindow(FALSE);
        Frame().EnableWindow(TRUE);
        for (const CWnd* const part : parts)
            EXPECT_TRUE(part->IsWindowEnabled());
    });
}

TEST_F(ColumnTree, HasTheFontOfTheDesktop)
{
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPixelSize(40);
    QApplication::setFont(large);
    test::AtlasDialog dialog;
    QTimer::singleShot(0, [&dialog] {
        for (const CWnd* const part :
             std::initializer_list<const CWnd*>{&dialog.m_ColumnTree.m_Tree, &dialog.m_ColumnTree.m_Header})
            EXPECT_EQ(test::WidgetOf(*part).font().pixelSize(), 40);
        dialog.EndDialog(IDCANCEL);
    });
    dialog.DoModal();
    QApplication::setFont(before);
}

TEST_F(ColumnTree, KeepsTheSelectedRowInViewWhenAllRowsFold)
{
    std::vector<BYTE> levels;
    for (int i = 0; i < 60 * 3; ++i)
        levels.push_back(i % 3 == 0 ? 0 : 1);
    test::SetTable(levels);
    RunInside([&] {
        EXPECT_FALSE(PlaceOf(Frame().m_CornerHeader).empty()) << "from the first moment";
        Tree().CollapseAll();
        Tree().Select(Row(50), TVGN_CARET);
        for (const int command : {ID_EXPAND_ALL, ID_COLLAPSE_ALL}) {
            Tree().EnsureVisible(Row(0));
            m_dialog.SendMessage(WM_COMMAND, static_cast<WPARAM>(command));
            EXPECT_EQ(Selection(), "cell -1 of none, column -1, row 150");
            ExpectInView(Tree().GetNextItem(nullptr, TVGN_CARET));
        }
        Click(Cell(50, 1));
        Tree().EnsureVisible(Row(0));
        test::PressKey(Tree(), VK_LEFT);
        ExpectInView(Row(50));
    });
}

class ColumnTreeStands : public ColumnTree, public testing::WithParamInterface<std::pair<int, DWORD>>
{
};

TEST_P(ColumnTreeStands, AnyTable)
{
    const auto [rows, columns] = GetParam();
    std::vector<BYTE> levels;
    for (int i = 0; i < rows; ++i)
        levels.push_back(static_cast<BYTE>(i % 3));
    test::SetTable(levels, columns);
    RunInside([&, first = columns > 0 ? 1 : 0, count = rows] {
        for (const int side : {300, 40, 20, 1, 0, 200}) {
            Frame().MoveWindow(0, 0, side, side);
            Frame().m_cellItem = Row(0);
            for (const UINT key : {VK_RIGHT, VK_DOWN, VK_DOWN, VK_UP, VK_LEFT, VK_SUBTRACT, VK_ADD}) {
                Frame().m_cellColumn = first;
                test::PressKey(Tree(), key);
                Frame().RedrawWindow();
            }
        }
        test::PressMouse(Frame().m_Header, {209, 5});
        for (int x = 209; x >= 20; --x)
            test::DragMouse(Frame().m_Header, {x, 5});
        test::ReleaseMouse(Frame().m_Header, {20, 5});
        EXPECT_EQ(Frame().m_columnWidths[1], 0) << "the one that is dragged, if there is one";
        m_dialog.FillTree();
        EXPECT_EQ(Frame().m_cellItem, nullptr);
        EXPECT_EQ(std::ranges::count(Hierarchy(), '<'), count);
    });
}

INSTANTIATE_TEST_SUITE_P(Tables, ColumnTreeStands,
                         testing::ValuesIn(std::vector<std::pair<int, DWORD>>{
                             {0, 0}, {0, 32}, {1, 7}, {300, 32}, {5000, 1}, {5000, 32}}));

} // namespace
