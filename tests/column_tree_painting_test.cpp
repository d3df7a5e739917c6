// A row of the column tree, pixel by pixel, against rectangles that stand here in numbers.
#include "support/AtlasDialog.h"
#include "support/Picture.h"

namespace
{

constexpr int width = 240, height = 48;
constexpr COLORREF face = RGB(120, 120, 0);
constexpr COLORREF grid = RGB(0, 120, 120);
constexpr COLORREF marked = RGB(120, 0, 120);
constexpr COLORREF markedText = RGB(250, 250, 0);
constexpr COLORREF grey = RGB(128, 128, 128); // on every desktop
constexpr UINT inFocus = CDIS_SELECTED | CDIS_FOCUS;

// What a row is told to look like, and how it does.
struct Look {
    const char* Name;
    UINT State = 0;
    COLORREF TextBack = test::windowColor;
    COLORREF Text = test::filling;
    bool HasBand = false;
    int Cell = 0, Column = 0, Filled = 0; // the file columns that are selected, and the one that shows it
    int FirstWidth = 100;
    bool IsEnabled = true;
    short SymbolSize = 6;
};
enum : std::size_t { plain, rowSelected, selectedElsewhere, cellSelected, columnSelected, disabled };
const Look looks[] = {
    {"plain"},
    {"selected", inFocus, marked, markedText, true},
    {"selected without the focus", CDIS_SELECTED},
    {.Name = "a cell", .Cell = 4, .Filled = 4},
    {.Name = "a column", .Column = 1, .Filled = 1},
    {.Name = "disabled", .TextBack = face, .Text = grey, .IsEnabled = false},
    {"a band without the focus", CDIS_SELECTED, marked, markedText, true},
    {.Name = "a cell of one pixel", .Cell = 2, .Filled = 2},
    {.Name = "a cell without room", .Cell = 3},
    {.Name = "a band while disabled", .Text = grey, .HasBand = true, .IsEnabled = false},
    {.Name = "a label cut short", .FirstWidth = 40},
    {"a band under it", CDIS_SELECTED, marked, markedText, true, 0, 0, 0, 40},
    {.Name = "no room for a label", .FirstWidth = 22},
    {.Name = "symbols larger than the row", .Cell = 1, .Filled = 1, .SymbolSize = 25},
};

class ColumnTreeRow : public test::ColumnTreeTest
{
protected:
    void RunInside(const std::function<void()>& body)
    {
        test::SetTable({0, 0, 0});
        ColumnTreeTest::RunInside([&] {
            LOGFONTW small{};
            small.lfHeight = -6; // for rows of 16 pixels
            CFont font;
            font.CreateFontIndirect(&small);
            Tree().SetFont(&font);
            m_row = Row(1);
            SetUp(looks[plain]);
            body();
        });
    }
    void SetUp(const Look& look)
    {
        Frame().m_columnWidths = {look.FirstWidth, 40, 14, 13, 30};
        Tree().m_firstColumnWidth = look.FirstWidth;
        for (short i = 0; i < 4; ++i) {
            k_LineDef& style = *Style(1, i);
            style.SymbolShape = static_cast<short>(i + 1);
            style.SymbolSize = look.SymbolSize;
            style.SymbolColor = test::ink;
            style.LineStyle = PS_DOT;
        }
    }
    // The second of three rows.
    void Compose(CDC& dc, const Look& look)
    {
        dc.SelectObject(Tree().GetFont());
        const CString text = Tree().GetItemText(m_row);
        CRect extent;
        dc.DrawText(text, extent, DT_CALCRECT | DT_NOPREFIX);
        const int end = look.FirstWidth;
        dc.FillSolidRect(19, 16, 4 + extent.right, 16, look.IsEnabled ? test::windowColor : face);
        for (const int line : {-1, 39, 53, 66, 96})
            dc.FillSolidRect(end + line, 16, 1, 16, grid);
        dc.FillSolidRect(0, 31, end + 97, 1, grid);
        if (look.HasBand)
            dc.FillSolidRect(19, 16, end + 97 - 19, 16, look.TextBack);
        if (look.State == inFocus)
            dc.DrawFocusRect(CRect(19, 16, end + 97, 32));
        dc.SetBkMode(TRANSPARENT);
        dc.SetTextColor(look.Text);
        dc.DrawText(text, CRect(21, 17, std::min<int>(21 + extent.right, end - 6), 31),
                    DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
        for (const auto& [number, left, past] : {std::tuple{1, 10, 37}, {2, 50, 51}, {4, 77, 94}}) {
            const CRect cell(end + left, 17, end + past, 31);
            if (number == look.Filled)
                dc.FillSolidRect(cell, marked);
            Style(1, number - 1)->DrawLine(&dc, cell);
            Style(1, number - 1)->DrawSymbol(&dc, cell);
        }
    }
    // On a context that is as opaque, and as wrongly coloured, as one can come.
    void Draw(CDC& dc, const Look& look)
    {
        dc.SelectObject(Tree().GetFont());
        dc.SetBkColor(test::gapColor);
        const NMHDR told{Tree().m_hWnd, 2, static_cast<UINT>(NM_CUSTOMDRAW)};
        const auto row = reinterpret_cast<UINT_PTR>(m_row);
        const RECT place{0, 16, width, 32};
        const NMTVCUSTOMDRAW draw{
            {told, CDDS_ITEMPOSTPAINT, dc.m_hDC, place, row, look.State, 0}, look.Text, look.TextBack, 0};
        Frame().SendMessage(WM_NOTIFY, 2, reinterpret_cast<LPARAM>(&draw));
    }

    HTREEITEM m_row = nullptr;
    const test::DesktopColors m_colors{{{QPalette::Button, face},
                                        {QPalette::Text, test::filling},
                                        {QPalette::Highlight, marked},
                                        {QPalette::HighlightedText, markedText},
                                        {QPalette::Midlight, grid}}};
};

TEST_F(ColumnTreeRow, IsPaintedStepByStep)
{
    RunInside([&] {
        for (const Look& look : looks) {
            SetUp(look);
            Frame().m_cellItem = Row(look.Cell > 0 ? 1 : 0);
            Frame().m_cellColumn = std::max(look.Cell, 1);
            Frame().m_selectedColumn = look.Column;
            Frame().EnableWindow(look.IsEnabled ? TRUE : FALSE);
            test::Picture expected(width, height), drawn(width, height);
            Compose(expected.Dc(), look);
            Draw(drawn.Dc(), look);
            EXPECT_EQ(drawn, expected) << look.Name;
            for (int x = look.FirstWidth - 5; x < look.FirstWidth; ++x)
                EXPECT_EQ(drawn.At(x, 24), drawn.At(x, 17)) << look.Name << ": a label that runs over " << x;
        }
    });
}

TEST_F(ColumnTreeRow, ShowsWhatTheUserHasDone)
{
    const std::pair<std::size_t, std::function<void()>> steps[] = {
        {plain, [&] { Tree().SetFocus(); }},
        {rowSelected,
         [&] {
             test::Click(Tree(), {25, 24});
         }},
        {selectedElsewhere, [&] { m_dialog.GetDlgItem(IDOK)->SetFocus(); }},
        {cellSelected,
         [&] {
             test::Click(Tree(), {180, 24});
         }},
        {columnSelected,
         [&] {
             test::Click(Frame().m_Header, {180, 5});
         }},
        {plain, [&] { Frame().ClearSelection(); }},
        {disabled, [&] { Frame().EnableWindow(FALSE); }},
    };
    RunInside([&] {
        for (const auto& [index, act] : steps) {
            const Look& look = looks[index];
            act();
            SetUp(look); // a click on a heading reads the widths anew
            test::Picture expected(width, height);
            expected.Dc().FillSolidRect(0, 0, width, height, look.IsEnabled ? test::windowColor : face);
            Compose(expected.Dc(), look);
            const QImage shown = Window::Of(Tree().m_hWnd)->Client().grab().toImage();
            int differing = 0;
            for (int x = 19; x < width; ++x) {
                for (int y = 16; y < 32; ++y)
                    differing += ((shown.pixel(x, y) ^ expected.PixelAt(x, y)) & 0xFFFFFF) != 0;
            }
            EXPECT_EQ(differing, 0) << look.Name;
        }
    });
}

} // namespace
