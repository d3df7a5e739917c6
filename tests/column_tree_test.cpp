// The column tree in its dialog: where its rows and windows stand, how it scrolls, and tables of any size.
#include "support/AtlasDialog.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <dialogs/resource.h>

namespace
{

class ColumnTree : public test::ColumnTreeTest
{
protected:
    // Left, top, right and bottom in the frame; nothing where it is hidden.
    std::vector<int> PlaceOf(CWnd& window)
    {
        CRect place = test::PlaceOf(window);
        Frame().ScreenToClient(&place);
        return test::WidgetOf(window).isVisible()
                   ? std::vector<int>{place.left, place.top, place.right, place.bottom}
                   : std::vector<int>();
    }
    LRESULT Scroll(UINT code, int position)
    {
        return Frame().SendMessage(WM_HSCROLL, MAKEWPARAM(code, static_cast<UINT>(position)));
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
        for (int i = 0; i < 60; ++i)
            m_dialog.m_Atlas.AddRow({99, 0, 0, -1, 0}, 0);
        m_dialog.FillTree();
        EXPECT_FALSE(PlaceOf(Frame().m_CornerHeader).empty()) << "beside a bar";
    });
}

TEST_F(ColumnTree, PlacesAndEnablesItsWindows)
{
    RunInside([&] {
        const int head = Frame().m_headerHeight;
        const int bar = ::GetSystemMetrics(SM_CXVSCROLL);
        const int room = 300 - bar; // of a width of 300, beside a bar
        const int low = head + bar - 1;
        const int end = head + 40 + bar;
        const std::vector<int> narrow{-30, 0, room, head}, corner{room, 0, 300, head};
        ASSERT_GT(head, 0);
        EXPECT_EQ(Frame().m_totalWidth, 150 + 4 * 60);
        constexpr int alignedRight = 1;
        Frame().InsertColumn(5, _T("narrow"), alignedRight, 2);
        const struct {
            int Width, Height;
            std::vector<int> Header, Tree, Bar, Corner;
        } cases[] = {{400, 300, {0, 0, 400, head}, {0, head, 400, 300}, {}, {}}, // room for all
                     {300, 300, {-30, 0, 300, head}, {-30, head, 300, room}, {0, room, 300, 300}, {}},
                     {300, low, narrow, {-30, head, 300, low}, {}, corner}, // too low for the bar
                     {300, end, narrow, {-30, head, 300, end - bar}, {0, end - bar, room, end}, corner}};
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
        const QImage picture = test::PictureOf(Frame().m_CornerHeader);
        EXPECT_NE(picture.pixel(1, head - 1), picture.pixel(1, 9)) << "no heading";
        for (int x = 0; x < bar; ++x)
            EXPECT_EQ(picture.pixel(x, head / 2), picture.pixel(0, head / 2))
                << "with a text or an end at " << x;
        {
            constexpr COLORREF face = RGB(120, 120, 0); // of buttons, other than the dialog's
            const test::DesktopColors other({{QPalette::Button, face}});
            EXPECT_EQ(test::PixelOf(Frame(), CPoint(299, end - 1)), face);
        }
        Resize(400, head + 60);
        Tree().Expand(Row(0), TVE_COLLAPSE);
        EXPECT_TRUE(PlaceOf(Frame().m_CornerHeader).empty()) << "the folded rows have room";
        Tree().Expand(Row(0), TVE_EXPAND);
        Resize(400, 300);
        EXPECT_EQ(Frame().m_xOffset, 0);
        const auto& headings = dynamic_cast<QHeaderView&>(test::WidgetOf(Frame().m_Header));
        EXPECT_EQ(headings.model()->headerData(2, Qt::Horizontal).toString(), "file 2");
        const int alignment = headings.model()->headerData(5, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
        EXPECT_TRUE(alignment & Qt::AlignRight) << alignment;
        Frame().m_CornerHeader.SetFont(Tree().GetFont());
        Frame().m_headerHeight = 0; // as if other settings were in force
        Frame().UpdateScroller();
        test::ChangeSettings();
        for (const CWnd* const header : {&Frame().m_Header, &Frame().m_CornerHeader})
            EXPECT_EQ(header->GetFont(),
                      CFont::FromHandle(static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT))));
        EXPECT_EQ(PlaceOf(Tree()), (std::vector{0, head, 400, 300}));

        CWnd* const parts[] = {&Tree(), &Frame().m_Header, &Frame().m_CornerHeader, &Frame().m_HorScroll};
        for (CWnd* const part : parts)
            part->EnableWindow(FALSE);
        Frame().EnableWindow(FALSE);
        Frame().EnableWindow(TRUE);
        for (const CWnd* const part : parts)
            EXPECT_TRUE(part->IsWindowEnabled());
    });
}

TEST_F(ColumnTree, LooksTheSameInBothDirections)
{
    test::SetTable(std::vector<BYTE>(99), 32); // with both scroll bars
    RunInside([&] {
        const QImage before = test::PictureOf(Frame());
        const Qt::LayoutDirection direction = QApplication::layoutDirection();
        QApplication::setLayoutDirection(direction == Qt::LeftToRight ? Qt::RightToLeft : Qt::LeftToRight);
        EXPECT_EQ(test::PictureOf(Frame()), before);
        QApplication::setLayoutDirection(direction);
    });
}

TEST_F(ColumnTree, IsLightOnEveryDarkDesktop)
{
    const auto desktop = [](COLORREF ground, COLORREF text) {
        return std::vector<std::pair<QPalette::ColorRole, COLORREF>>{
            {QPalette::Window, ground}, {QPalette::WindowText, text}, {QPalette::Base, ground},
            {QPalette::Text, text},     {QPalette::Button, ground},   {QPalette::ButtonText, text}};
    };
    const auto dark = desktop(RGB(40, 40, 50), RGB(240, 240, 240));
    QImage shown;
    {
        const test::DesktopColors colors(dark);
        RunInside([&] {
            shown = test::PictureOf(m_dialog);
            const QPalette palette = test::WidgetOf(m_dialog).palette();
            EXPECT_NE(palette.color(QPalette::Disabled, QPalette::Text), palette.color(QPalette::Text));
        });
        int light = 0;
        for (int i = 0; i < shown.width() * shown.height(); ++i)
            light += qGray(shown.pixel(i % shown.width(), i / shown.width())) > 200 ? 1 : 0;
        EXPECT_GT(light, shown.width() * shown.height() * 9 / 10);
        EXPECT_EQ(::GetSysColor(COLOR_BTNTEXT), RGB(0, 0, 0));
    }
    RunInside([&] { // as the desktop changes
        EXPECT_NE(test::PictureOf(m_dialog), shown);
        for (const auto& colors : {dark, desktop(RGB(0, 0, 0), RGB(255, 255, 0))}) {
            const test::DesktopColors changed(colors);
            EXPECT_EQ(test::PictureOf(m_dialog), shown);
        }
        EXPECT_NE(test::PictureOf(m_dialog), shown);
    });
}

TEST_F(ColumnTree, ScrollsByEachCode)
{
    test::SetTable({0, 1, 2, 2, 1, 0}, 32);
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
        k_LineDef& disc = *Style(5, 0);
        disc.SymbolShape = 8;
        disc.SymbolFill = 0;
        disc.SymbolSize = 90; // beyond its cell, which ends at 207
        disc.SymbolColor = RGB(255, 0, 0);
        Scroll(SB_THUMBTRACK, 210);
        EXPECT_EQ(test::PixelOf(Tree(), {213, Label(5).y + 3}), disc.SymbolColor);
        Scroll(SB_LEFT, 0);
        EXPECT_EQ(Frame().InsertColumn(33, _T("one too many"), 0, 60), -1);
        // The edges of a cell are counted from the left of the window: 150 + 150, then 60 a column.
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
        // Item, width; whether that is refused, and what the width is changed to.
        for (const auto& [item, width, refused, changed] :
             {std::tuple(0, 200, 1, 200), {0, 100, 0, 100}, {0, 99, 1, 101}, {1, 0, 0, 0}, {0, -5, 1, 101}})
            EXPECT_EQ(tell(HDN_ITEMCHANGINGW, item, width), std::pair(LRESULT{refused}, changed)) << width;
        tell(HDN_ITEMCHANGEDW, 1, 60);
        EXPECT_EQ(tell(HDN_ITEMCHANGINGW, 1, 70).first, 1) << "every change refuses the next one";
        EXPECT_EQ(tell(HDN_ITEMCHANGINGW, 1, 70).first, 0);
        test::Click(Frame().m_Header, {180, 5});
        EXPECT_EQ(tell(HDN_ITEMCHANGINGW, 1, 70).first, 1) << "and so does a click";
        Frame().m_cellColumn = 1;
        tell(HDN_ITEMDBLCLICKW, 3, 60);
        EXPECT_EQ(Selection(), "cell -1 of none, column 3") << "without a click before";
        for (const NMHDR& each : m_dialog.Notifications)
            EXPECT_TRUE(int(each.code) != HDN_ITEMCHANGINGW && int(each.code) != HDN_ITEMCHANGEDW);
    });
}

TEST_F(ColumnTree, FindsTheColumnOfAPoint)
{
    RunInside([&] {
        const int y = Label(5).y + Frame().m_headerHeight;
        for (const auto& [x, column] :
             {std::pair(140, 0), {150, 0}, {151, 1}, {210, 1}, {211, 2}, {390, 4}, {391, -1}}) { // -1: none
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
    RunInside([&, first = columns > 0 ? 1 : 0, count = rows, isNarrow = columns < 2] {
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
        EXPECT_EQ(PlaceOf(Frame().m_HorScroll).empty(), isNarrow);
        m_dialog.FillTree();
        EXPECT_EQ(Frame().m_cellItem, nullptr);
        EXPECT_EQ(std::ranges::count(Hierarchy(), '<'), count);
    });
}

INSTANTIATE_TEST_SUITE_P(Tables, ColumnTreeStands,
                         testing::ValuesIn(std::vector<std::pair<int, DWORD>>{
                             {0, 0}, {0, 32}, {1, 1}, {300, 32}, {5000, 1}, {5000, 32}}));

} // namespace
