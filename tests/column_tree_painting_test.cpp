// A row of the column tree as it stands on the screen after what the user has done.
#include "support/AtlasDialog.h"
#include "support/Picture.h"

namespace
{

constexpr int left = 19;   // of the label
constexpr int right = 240; // beyond all columns
constexpr int top = 16;    // of the row, which is as high
constexpr int firstWidth = 100;
constexpr COLORREF window = RGB(240, 250, 240);
constexpr COLORREF face = RGB(120, 120, 0);
constexpr COLORREF grid = RGB(0, 120, 120);
constexpr COLORREF marked = RGB(120, 0, 120);
constexpr COLORREF markedText = RGB(250, 250, 0);
constexpr COLORREF grey = RGB(128, 128, 128); // on every desktop

class ColumnTreeRow : public test::ColumnTreeTest
{
protected:
    // With columns of 40, 14, 13 and 30 pixels, and a label that is cut short.
    void RunInside(const std::function<void()>& body)
    {
        test::SetTable({0, 0, 0});
        ColumnTreeTest::RunInside([&] {
            LOGFONTW small{};
            small.lfHeight = -6; // for rows of 16 pixels
            CFont font;
            font.CreateFontIndirect(&small);
            Tree().SetFont(&font);
            CString label(std::u16string(60, u'\u2588').c_str()); // solid blocks
            TVITEMW item{};
            item.mask = TVIF_TEXT;
            item.pszText = label.GetBuffer();
            for (const int row : {1, 2}) {
                item.hItem = Row(row);
                Tree().SetItem(&item);
            }
            for (short i = 0; i < 4; ++i) {
                k_LineDef& style = *Style(1, i);
                style.SymbolShape = static_cast<short>(i + 1);
                style.SymbolSize = 6;
                style.SymbolColor = test::ink;
                style.LineStyle = PS_DOT;
            }
            body();
        });
    }
    void Look()
    {
        const int widths[] = {firstWidth, 40, 14, 13, 30}; // a click on a heading reads them anew
        std::ranges::copy(widths, Frame().m_columnWidths.begin());
        Tree().m_firstColumnWidth = firstWidth;
        m_shown = test::PictureOf(Tree());
    }
    char At(int x, int y) const
    {
        constexpr std::pair<COLORREF, char> kinds[] = {{window, ' '}, {face, 'f'},       {grid, '|'},
                                                       {marked, 'm'}, {markedText, 't'}, {test::filling, 'o'},
                                                       {grey, 'g'},   {0, '-'},          {test::ink, '#'}};
        for (const auto& [color, kind] : kinds) {
            if (((m_shown.pixel(x, y) ^ gdi::ToPixel(color)) & 0xFFFFFF) == 0)
                return kind;
        }
        return '?';
    }
    // The runs of pixels from there on: "80m|" for 80 of m and one of |.
    std::string Pixels(int y, int from) const
    {
        std::string text;
        for (int x = from, end = x; x < right; x = end) {
            while (end < right && At(end, y) == At(x, y))
                ++end;
            text += (end - x > 1 ? std::to_string(end - x) : "") + At(x, y);
        }
        return text;
    }
    // The colours of text in the label, as far as it may reach, and whether one of them underlines it.
    std::string Text(int rowTop = top) const
    {
        std::string seen;
        bool isUnderlined = false;
        for (int y = rowTop + 2; y < rowTop + 14; ++y) {
            std::string line;
            for (int x = left + 2; x < firstWidth; ++x)
                line += At(x, y);
            for (const char kind : {'o', 't', 'g'}) {
                if (line.find(kind) != std::string::npos && seen.find(kind) == std::string::npos)
                    seen += kind;
                isUnderlined |= line.find(std::string(40, kind)) != std::string::npos;
            }
        }
        return seen + (isUnderlined ? "_" : "");
    }

    QImage m_shown;
    const test::DesktopColors m_colors{{{QPalette::Base, window},
                                        {QPalette::Button, face},
                                        {QPalette::Text, test::filling},
                                        {QPalette::Highlight, marked},
                                        {QPalette::HighlightedText, markedText},
                                        {QPalette::Midlight, grid}}};
};

TEST_F(ColumnTreeRow, ShowsWhatTheUserHasDone)
{
    const std::string plain = "80 |39 |13 |12 |29 |43 ";
    const std::string cells = "10 3-3 3-3 -#-3 3-3 3-2 |9 #-# |12 |10 3-2 #4 # 3-4 |43 ";
    const struct {
        const char* Name;
        std::function<void()> Act;
        const char* Text;
        std::string Above, Cells; // above the label and the pictures, and through the middle of these
    } steps[] = {
        {"plain", [&] { Tree().SetFocus(); }, "o", plain, cells},
        {"a row", [&] { test::Click(Tree(), Label(1)); }, "t", "?177m43 ",
         "10m3-3 3-3 -#-3 3-3 3-12m#-#25m3-2 #4 # 3-2 2m?43 "},
        {"a row under the mouse",
         [&] { Tree().ModifyStyle(0, TVS_TRACKSELECT), Tree().InvalidateRect(nullptr, TRUE); }, "t_",
         "?177m43 ", "10m3-3 3-3 -#-3 3-3 3-12m#-#25m3-2 #4 # 3-2 2m?43 "},
        {"a row without the focus",
         [&] { m_dialog.GetDlgItem(IDOK)->SetFocus(), Tree().ModifyStyle(TVS_TRACKSELECT, 0); }, "o", plain,
         cells},
        {"a narrow cell", [&] { test::Click(Tree(), Cell(1, 3)); }, "o", plain, cells},
        {"another cell", [&] { test::Click(Tree(), Cell(1, 1)); }, "o", "80 |10 27m2 |13 |12 |29 |43 ",
         cells},
        {"another row", [&] { test::Click(Tree(), Label(0)); }, "o", plain, cells},
        {"a later cell", [&] { test::Click(Tree(), Cell(1, 4)); }, "o", "80 |39 |13 |12 |10 17m2 |43 ",
         cells},
        {"a cell without room", [&] { test::PressKey(Tree(), VK_LEFT); }, "o", plain, cells},
        {"a cell of one pixel", [&] { test::PressKey(Tree(), VK_LEFT); }, "o", "80 |39 |10 m2 |12 |29 |43 ",
         cells},
        {"the cell below", [&] { test::PressKey(Tree(), VK_DOWN); }, "o", plain, cells},
        {"the cell again", [&] { test::PressKey(Tree(), VK_UP); }, "o", "80 |39 |10 m2 |12 |29 |43 ", cells},
        {"the last column",
         [&] {
             test::Click(Frame().m_Header, {360, 5});
         },
         "o", "80 |39 |13 |12 |10 17m2 |43 ", cells},
        {"a column",
         [&] {
             test::Click(Frame().m_Header, {180, 5});
         },
         "o", "80 |10 27m2 |13 |12 |29 |43 ", cells},
        {"disabled", [&] { Frame().EnableWindow(FALSE); }, "g", "80f|10f27m2f|13f|12f|29f|43f",
         "10f3-3 3-3 -#-3 3-3 3-2f|9f#-#f|12f|10f3-2 #4 # 3-2 2f|43f"}};
    RunInside([&] {
        for (const auto& step : steps) {
            step.Act();
            Look();
            EXPECT_EQ(Pixels(top + 1, left), step.Above) << step.Name;
            EXPECT_EQ(Pixels(top + 8, firstWidth), step.Cells) << step.Name;
            EXPECT_EQ(Text(), step.Text) << step.Name;
            EXPECT_EQ(Text(2 * top), step.Text[0] == 'g' ? "g" : "o") << step.Name << ": the row below";
            for (const int x : {left + 1, firstWidth - 6, firstWidth - 5, firstWidth - 4, firstWidth - 3})
                EXPECT_EQ(At(x, top + 8), At(x, top + 1)) << step.Name << ": a label that runs over " << x;
            EXPECT_EQ(At(firstWidth + 30, top + 15), step.Cells[2] == 'm' ? 'm' : '|');
        }
    });
}

} // namespace
