// The column tree under the mouse and the keys: what they select, and which styles they open for editing.
#include "support/AtlasDialog.h"

#include <QHelpEvent>
#include <QToolTip>
#include <dialogs/resource.h>

namespace
{

using ColumnTreeInput = test::ColumnTreeTest;
using test::editRequests;

TEST_F(ColumnTreeInput, SelectsByClicks)
{
    RunInside([&] {
        const std::pair<CPoint, const char*> clicks[] = {
            {Label(1), "cell -1 of none, column -1, row 1"},
            {Cell(2, 3), "cell 3 of 2, column -1"},
            {{395, Label(2).y}, "cell 3 of 2, column -1"}, // right of all columns
            {Label(1), "cell -1 of none, column -1, row 1"},
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

TEST_F(ColumnTreeInput, WalksByKeys)
{
    const struct {
        const char* Name;
        int Cell, Row, Column; // at the start
        UINT Key;
        const char* Selection;
        bool Selects = false; // a row beside the cell, which a step deselects
    } steps[] = {{"left", 3, 2, -1, VK_LEFT, "cell 2 of 2, column -1", true},
                 {"left out of the cells", 1, 2, -1, VK_LEFT, "cell -1 of 2, column -1"},
                 {"right", 3, 2, -1, VK_RIGHT, "cell 4 of 2, column -1", true},
                 {"right at the end", 4, 2, -1, VK_RIGHT, "cell 4 of 2, column -1"},
                 {"up", 2, 4, -1, VK_UP, "cell 2 of 3, column -1", true},
                 {"up at the top", 2, 0, -1, VK_UP, "cell 2 of 0, column -1"},
                 {"down", 2, 4, -1, VK_DOWN, "cell 2 of 5, column -1", true},
                 {"down at the end", 2, 5, -1, VK_DOWN, "cell 2 of 5, column -1"},
                 {"another key", 2, 4, -1, VK_SPACE, "cell 2 of 4, column -1"},
                 {"column left", -1, 4, 2, VK_LEFT, "cell -1 of 4, column 1"},
                 {"column left to the tree", -1, 4, 1, VK_LEFT, "cell -1 of 4, column 0"},
                 {"column right", -1, 4, 3, VK_RIGHT, "cell -1 of 4, column 4"},
                 {"column right at the end", -1, 4, 4, VK_RIGHT, "cell -1 of 4, column 4"},
                 {"column up", -1, 4, 3, VK_UP, "cell -1 of 4, column 3"}};
    RunInside([&] {
        for (const auto& step : steps) {
            Frame().m_cellColumn = step.Cell;
            Frame().m_cellItem = Row(step.Row);
            Frame().m_selectedColumn = step.Column;
            Tree().Select(step.Selects ? Row(0) : nullptr, TVGN_CARET);
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

TEST_F(ColumnTreeInput, NeedsNoMouse)
{
    constexpr UINT f2 = 113;
    constexpr UINT f6 = 117;
    RunInside([&] {
        const auto focus = [] { return Window::Of(QApplication::focusWidget())->Handle(); };
        const auto press = [&](UINT key, Qt::KeyboardModifiers modifiers = {}) {
            test::PressKey(*CWnd::FromHandle(focus()), key, modifiers);
            return Selection();
        };
        editRequests.clear();
        m_dialog.GetDlgItem(IDCANCEL)->SetFocus();
        press(VK_TAB);
        EXPECT_EQ(focus(), Tree().m_hWnd);
        press(VK_DOWN);
        EXPECT_EQ(press(f2), "cell -1 of none, column -1, row 1");
        EXPECT_EQ(press(f6), "cell 1 of 1, column -1");
        press(VK_RIGHT);
        EXPECT_EQ(press(f2), "cell 2 of 1, column -1");
        EXPECT_EQ(press(f6), "cell -1 of 1, column 2");
        EXPECT_EQ(press(f2), "cell -1 of 1, column 2");
        EXPECT_EQ(press(f6, Qt::ShiftModifier), "cell 2 of 1, column -1");
        EXPECT_EQ(press(f6, Qt::ShiftModifier), "cell -1 of none, column -1, row 1");
        EXPECT_EQ(press(f6, Qt::ShiftModifier), "cell -1 of none, column 1");
        EXPECT_EQ(press(f6), "cell -1 of none, column -1, row 1") << "where it was";
        ASSERT_EQ(editRequests.size(), 3U);
        EXPECT_EQ(editRequests[0].Quantity, m_dialog.m_Atlas.GetRow(1));
        EXPECT_EQ(editRequests[1].Styles, std::vector<const k_LineDef*>{Style(1, 1)});
        EXPECT_EQ(editRequests[2].Styles.size(), 6U);

        Click(Cell(4, 1));
        press(VK_LEFT);
        EXPECT_EQ(press(VK_DOWN), "cell -1 of 4, column -1, row 5");
        Resize(250, Frame().m_headerHeight + Label(4).y); // room for three rows and one column
        Tree().EnsureVisible(Row(5));
        Click(Cell(4, 1));
        press(VK_DOWN);
        for (int i = 0; i < 3; ++i)
            press(VK_RIGHT);
        Frame().SendMessage(WM_HSCROLL, SB_LEFT, 0);
        press(f2);
        EXPECT_EQ(editRequests.back().Styles, std::vector<const k_LineDef*>{Style(5, 3)});
        EXPECT_EQ(Frame().m_xOffset, Frame().m_totalWidth + GetSystemMetrics(SM_CXVSCROLL) - 250) << "shown";
        test::TurnWheel(Tree(), 0, 120);
        const int offset = Frame().m_xOffset;
        EXPECT_LT(offset, Frame().m_totalWidth + GetSystemMetrics(SM_CXVSCROLL) - 250);
        test::TurnWheel(Frame().m_Header, 0, -120);
        EXPECT_GT(Frame().m_xOffset, offset);
        for (const bool expands : {false, true}) {
            expands ? Tree().ExpandAll() : Tree().CollapseAll();
            ExpectInView(Frame().m_cellItem);
        }

        press(VK_TAB);
        EXPECT_EQ(focus(), m_dialog.GetDlgItem(IDC_LOAD)->m_hWnd);
        Click(Cell(4, 1));
        QTimer::singleShot(0, [&] {
            auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
            QTest::keyClick(&menu, Qt::Key_End);
            EXPECT_EQ(menu.activeAction(), menu.actions().back());
            QTest::keyClick(&menu, Qt::Key_Home);
            EXPECT_EQ(menu.activeAction(), menu.actions().front());
            const QPoint middle = test::ClientOf(Tree()).mapToGlobal(QPoint(Cell(4, 1).x, Cell(4, 1).y));
            const QPoint below = menu.pos() - middle;
            EXPECT_TRUE(below.y() > 0 && below.y() < 12) << below.y();
            EXPECT_EQ(below.x(), -(Frame().m_columnWidths[1] / 2)) << "under the cell";
            menu.close();
        });
        test::PressKey(Tree(), 121, Qt::ShiftModifier);
    });
}

TEST_F(ColumnTreeInput, OpensTheStylesOfEachGesture)
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
        EXPECT_EQ(last.Styles, (Styles{Style(0, 0), nullptr, Style(2, 0), Style(3, 0), Style(4, 0), other}));
        EXPECT_EQ(last.Quantity, nullptr);
        EXPECT_EQ(last.Parent, &m_dialog);
        EXPECT_EQ(Frame().m_selectedColumn, 1);
        EXPECT_EQ(open(Frame().m_Header, {20, 5}).Parent, nullptr);
        EXPECT_EQ(Frame().m_selectedColumn, 0);
        for (const int x : {145, 395}) // beside the label, and right of all columns
            EXPECT_EQ(open(Tree(), {x, Label(0).y}).Parent, nullptr);
        const auto secondClick = [&](CPoint point) { // whose first one was elsewhere
            Tree().SendMessage(WM_LBUTTONDBLCLK, 0, MAKELPARAM(point.x, point.y));
            return Selection();
        };
        EXPECT_EQ(secondClick(Label(1)), "cell 0 of 0, column -1, row 5");
        EXPECT_EQ(secondClick(Cell(1, 3)), "cell 3 of 5, column -1");
    });
}

TEST_F(ColumnTreeInput, ShowsAnEditAtOnceAndHasTheFocusAgain)
{
    constexpr COLORREF red = 0x0000FF;
    RunInside([&] {
        Frame().SetStyleEditor([](CWnd* parent, k_LineDefList* styles, k_QuantityDesc*) -> INT_PTR {
            QWidget& dialog = *test::WidgetOf(*parent).window();
            dialog.findChild<QPushButton*>()->setFocus();
            test::Settle();
            styles->GetAt(0)->LineColor = red;
            return IDOK;
        });
        const std::tuple<CWnd*, CPoint, CPoint> gestures[] = {{&Tree(), Cell(0, 2), Cell(0, 2)},
                                                              {&Tree(), Label(1), Cell(1, 1)},
                                                              {&Frame().m_Header, {360, 5}, Cell(0, 4)}};
        for (const auto& [window, point, shown] : gestures) {
            test::ClickTwice(*window, point);
            EXPECT_EQ(test::PixelOf(Tree(), shown), red);
            EXPECT_EQ(test::WidgetOf(Tree()).hasFocus(), point == shown) << "as the modal dialog gives it";
        }
    });
}

TEST_F(ColumnTreeInput, NamesTheRowUnderTheMouse)
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
        EXPECT_EQ(ask(Label(6)), QString(79, 'x')) << "a row without data: its own text, as far as it fits";
        NMTTDISPINFOA info{};
        info.hdr = {Tree().m_hWnd, 2, static_cast<UINT>(TTN_NEEDTEXTA)};
        EXPECT_EQ(Tree().SendMessage(WM_NOTIFY, 2, reinterpret_cast<LPARAM>(&info)), 0);
        EXPECT_EQ(info.szText, std::string(79, 'x'));
        ask(Label(6));
        EXPECT_TRUE(QToolTip::isVisible());
        test::MoveMouse(Tree(), Label(5));
        QTRY_VERIFY(!QToolTip::isVisible()); // another row
    });
}

} // namespace
