// The curve style dialog: what it shows of the records, and what is in them after it.
#include "support/Gui.h"
#include "support/TempPrefix.h"

#include <dialogs/CurveLayoutDlg.h>
#include <dialogs/resource.h>

namespace
{

const test::ScopedVariable german("LC_ALL", "de_DE.UTF-8");

// The symbol's shape, size, fill, colour; the line's style, width, colour, whether it is the symbol's;
// Reserved.
using Style = std::tuple<short, short, short, COLORREF, short, short, COLORREF, bool, WORD>;
using Styles = std::vector<std::optional<Style>>; // nothing is a null in the list
constexpr COLORREF red = 0x0000FF;

auto Fields(k_LineDef& style)
{
    return std::tie(style.SymbolShape, style.SymbolSize, style.SymbolFill, style.SymbolColor, style.LineStyle,
                    style.LineWidth, style.LineColor, style.UseSymbolColor, style.Reserved);
}

// Opens the dialog, has the user act, and closes it by its cross if it is still open then.
INT_PTR Edit(k_LineDefList& list, const std::function<void(k_CurveLayoutDlg&)>& user,
             k_QuantityDesc* quantity)
{
    QTimer::singleShot(0, [&] {
        QWidget* const shown = QApplication::activeModalWidget();
        user(dynamic_cast<k_CurveLayoutDlg&>(*Window::Of(shown)->Attached));
        shown->close();
    });
    return EditStyles(nullptr, &list, quantity);
}

// What a user can do besides clicking a control and pressing a key.
enum { chooseNext = -1, hoverRed = -2, deleteDigit = -3 };

// A key goes to the popup where there is one.
void Act(k_CurveLayoutDlg& dialog, int step)
{
    CWnd& front = CWnd::GetCapture() != nullptr ? *CWnd::GetCapture() : dialog;
    if (CWnd* const control = dialog.GetDlgItem(step); control != nullptr && step > 0) {
        test::Click(*control, {5, 8});
    } else if (step == chooseNext) {
        for (const int id :
             {IDC_SYMBOL_SHAPE, IDC_SYMBOL_SIZE, IDC_SYMBOL_FILL, IDC_LINE_STYLE, IDC_LINE_WIDTH})
            test::PressKey(*dialog.GetDlgItem(id), VK_DOWN);
    } else if (step == hoverRed) {
        test::MoveMouse(front, {11, 47});
    } else {
        test::PressKey(step == deleteDigit ? dialog.m_LineWidthCombo : front, step == deleteDigit ? 8 : step);
    }
}

const Style base{4, 9, 1, 6, PS_DASH, 3, 2, false, 7};
const Style coupled{4, 9, 1, 6, PS_DASH, 3, 2, true, 7};
const Style other{8, 25, 0, 5, PS_DOT, 5, 3, true, 8};
const Style unknown{10, 16, 3, 6, 6, 11, 2, false, 7}; // no list has these
const struct {
    Styles Before;
    std::vector<int> Steps;
    Styles After;
} cases[] = {
    {{base}, {chooseNext}, {{{5, 10, 2, 6, PS_DOT, 4, 2, false, 7}}}},
    // What one of them has of its own, it keeps.
    {{base, {{1, 9, 1, 6, 1, 3, 2, true, 7}}}, {}, {base, {{1, 9, 1, 6, 1, 3, 2, false, 7}}}},
    {{base, {{4, 20, 1, 6, 1, 3, 2, true, 7}}}, {}, {base, {{4, 20, 1, 6, 1, 3, 2, false, 7}}}},
    {{base, {{4, 9, 0, 6, 1, 3, 2, true, 7}}}, {}, {base, {{4, 9, 0, 6, 1, 3, 2, false, 7}}}},
    {{base, {{4, 9, 1, 5, 1, 3, 2, true, 7}}}, {}, {base, {{4, 9, 1, 5, 1, 3, 2, false, 7}}}},
    {{base, {{4, 9, 1, 6, 2, 3, 2, true, 7}}}, {}, {base, {{4, 9, 1, 6, 2, 3, 2, false, 7}}}},
    {{base, {{4, 9, 1, 6, 1, 1, 2, true, 7}}}, {}, {base, {{4, 9, 1, 6, 1, 1, 2, false, 7}}}},
    {{base, {{4, 9, 1, 6, 1, 3, 1, true, 7}}}, {}, {base, {{4, 9, 1, 6, 1, 3, 1, false, 7}}}},
    {{other, base, other}, {}, {other, coupled, other}},
    {{base, other},
     {chooseNext, IDC_SYMBOL_COLOR, hoverRed, VK_RETURN, IDC_LINE_COLOR, hoverRed, VK_RETURN},
     {{{0, 2, 0, red, 0, 1, red, false, 7}}, {{0, 2, 0, red, 0, 1, red, false, 8}}}},
    // The check box has three states for many records, and two once it has been ticked.
    {{coupled, coupled}, {IDC_USE_SYMBOL_COLOR}, {base, base}},
    {{coupled, coupled}, {IDC_USE_SYMBOL_COLOR, IDC_USE_SYMBOL_COLOR}, {base, base}},
    {{base, other},
     {IDC_USE_SYMBOL_COLOR, IDC_USE_SYMBOL_COLOR, IDC_USE_SYMBOL_COLOR},
     {{{4, 9, 1, 6, PS_DASH, 3, 6, true, 7}}, {{8, 25, 0, 5, PS_DOT, 5, 6, true, 8}}}},
    // The line's colour follows the symbol's until it gets one of its own.
    {{coupled}, {IDC_SYMBOL_COLOR, hoverRed, VK_RETURN}, {{{4, 9, 1, red, PS_DASH, 3, red, true, 7}}}},
    {{coupled}, {IDC_LINE_COLOR, hoverRed, VK_RETURN}, {{{4, 9, 1, 6, PS_DASH, 3, red, false, 7}}}},
    {{base}, {IDC_SYMBOL_COLOR, hoverRed, VK_RETURN}, {{{4, 9, 1, red, PS_DASH, 3, 2, false, 7}}}},
    // A colour that nobody has moved to is no choice, but one that was given up is.
    {{base, other}, {IDC_LINE_COLOR, VK_RETURN}, {base, {{8, 25, 0, 5, PS_DOT, 5, 3, false, 8}}}},
    {{base, other}, {IDC_LINE_COLOR, VK_ESCAPE}, {base, {{8, 25, 0, 5, PS_DOT, 5, 2, false, 8}}}},
    // Numbers that are edited, or that no list has, stay; but 1 is taken for 10.
    {{base}, {deleteDigit}, {base}},
    {{unknown}, {}, {unknown}},
    {{{{4, 1, 1, 6, PS_DASH, 1, 2, false, 7}}}, {}, {{{4, 10, 1, 6, PS_DASH, 1, 2, false, 7}}}},
    {{std::nullopt, coupled}, {}, {std::nullopt, base}},
    {{}, {chooseNext}, {}}};

TEST(CurveDialog, WritesWhatIsDefiniteIntoEveryRecordAtOkAlone)
{
    for (const auto& each : cases) {
        for (const int end : {int{VK_RETURN}, IDCANCEL, int{VK_ESCAPE}, 0}) {
            k_LineDefList list;
            for (const std::optional<Style>& style : each.Before) {
                list.Add(style ? new k_LineDef : nullptr);
                if (style)
                    Fields(*list.GetAt(list.GetSize() - 1)) = *style;
            }
            const auto user = [&](k_CurveLayoutDlg& dialog) {
                for (const int step : each.Steps)
                    Act(dialog, step);
                Act(dialog, end);
            };
            EXPECT_EQ(Edit(list, user, nullptr), end == VK_RETURN ? IDOK : IDCANCEL);
            Styles after;
            for (INT_PTR i = 0; i < list.GetSize(); ++i)
                after.push_back(list.GetAt(i) ? std::optional<Style>(Fields(*list.GetAt(i))) : std::nullopt);
            EXPECT_EQ(after, end == VK_RETURN ? each.After : each.Before) << &each - cases;
        }
    }
}

TEST(CurveDialog, StaysWhenAKeyEndsAList)
{
    k_LineDefList list;
    list.Add(new k_LineDef);
    const auto user = [](k_CurveLayoutDlg& dialog) {
        auto& shapes = dynamic_cast<QComboBox&>(test::WidgetOf(dialog.m_SymbolShapeCombo));
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
            shapes.showPopup();
            QTest::keyClick(shapes.window()->windowHandle(), key); // where Wayland sends it
            EXPECT_TRUE(QApplication::activePopupWidget() == nullptr && shapes.isVisible());
        }
    };
    Edit(list, user, nullptr);
}

TEST(CurveDialog, NamesTheQuantityAndShowsPicturesAndALightGroundWhereTheRecordsDiffer)
{
    k_QuantityDesc quantity(QuantityKey{3, 1, 0, 0, 0});
    k_LineDefList list;
    for (const Style& style : {base, base, other}) {
        list.Add(new k_LineDef);
        Fields(*list.GetAt(list.GetSize() - 1)) = style;
        const auto user = [&](k_CurveLayoutDlg& dialog) {
            const bool isMixed = list.GetSize() == 3;
            const auto text = [](const CWnd& window) {
                WCHAR first[10];
                ::GetWindowTextW(window.m_hWnd, first, 10);
                return CString(first);
            };
            EXPECT_EQ(text(dialog), _T("Layout: 3")); // and more
            EXPECT_EQ(text(*dialog.GetDlgItem(IDCANCEL)), _T("Abbrechen"));
            EXPECT_EQ(text(dialog.m_UseSymbolColorCheck), _T("Symbolfar"));
            EXPECT_EQ(text(dialog.m_SymbolFillCombo), isMixed ? _T("") : _T("leer"));
            const int middle = test::PlaceOf(dialog.m_LineStyleCombo).Height() / 2;
            EXPECT_EQ(test::RowOf(dialog.m_SymbolShapeCombo, 4, 30, 40),
                      std::string(10, isMixed ? 'l' : 'h'));
            EXPECT_EQ(test::RowOf(dialog.m_SymbolShapeCombo, middle, 45, 60),
                      isMixed ? std::string(15, 'l') : "ldhhhhhhhhdllll");
            EXPECT_EQ(test::RowOf(dialog.m_LineStyleCombo, middle, 44, 54),
                      isMixed ? std::string(10, 'l') : "ddhhhhdddd");
            Act(dialog, IDC_USE_SYMBOL_COLOR);
            EXPECT_EQ(test::PixelOf(dialog.m_LineColorPicker, {20, 10}), COLORREF{6});
        };
        Edit(list, user, &quantity);
    }
}

} // namespace
