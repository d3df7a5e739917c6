// The layout combo box: what an item shows, on which background, and what a draw leaves behind.
#include "support/Gui.h"
#include "support/Picture.h"

#include <QtWidgets>
#include <dialogs/LayoutCombobox.h>
#include <model/LineDef.h>

namespace
{

using namespace test;

constexpr int width = 13;
constexpr int height = 9;
constexpr short squareShape = 4;
const CRect cell(0, 0, width, height);

struct ItemPicture : test::Picture {
    ItemPicture() : Picture(width, height) { Dc().SetBkColor(gapColor); }

    ItemPicture& Draw(CComboBox& box, UINT_PTR data, UINT action = ODA_DRAWENTIRE, UINT state = 0)
    {
        DRAWITEMSTRUCT item{ODT_COMBOBOX, 0, 0, action, state, nullptr, Dc().m_hDC, cell, data};
        box.DrawItem(&item);
        return *this;
    }
};

class LayoutCombobox : public testing::Test
{
protected:
    LayoutCombobox()
    {
        m_style.LineColor = ink;
        m_style.SymbolColor = filling;
        m_style.SymbolShape = squareShape;
        m_style.SymbolSize = 4;
    }
    void Make(DWORD style)
    {
        constexpr DWORD shown = WS_POPUP | WS_VISIBLE;
        m_parent.CreateEx(0, AfxRegisterWndClass(0), _T(""), shown, 0, 0, 200, 100, nullptr, 0);
        ASSERT_TRUE(m_box.Create(style, CRect(10, 10, 110, 90), &m_parent, 5));
        test::Settle();
    }
    UINT_PTR Style() const { return reinterpret_cast<UINT_PTR>(&m_style); }

    k_LineDef m_style;
    CWnd m_parent;
    k_LayoutCombobox m_box;
};

TEST_F(LayoutCombobox, IsHighlightedOnlyInADrawAboutTheSelection)
{
    const COLORREF highlight = ::GetSysColor(COLOR_HIGHLIGHT);
    const COLORREF light = ::GetSysColor(COLOR_3DLIGHT);
    const struct {
        int Mixed;
        UINT Action, State;
        COLORREF Background;
    } cases[] = {
        {0, ODA_DRAWENTIRE, ODS_SELECTED, gapColor},
        {0, ODA_SELECT, ODS_SELECTED | ODS_DISABLED, highlight},
        {1, ODA_DRAWENTIRE | ODA_SELECT, ODS_SELECTED, highlight},
        {1, ODA_DRAWENTIRE, ODS_SELECTED, light},
        {1, ODA_SELECT, 0, light},
        {2, ODA_SELECT, 0, gapColor}, // no other number is the mark
    };
    m_style.LineStyle = PS_DOT; // with gaps in the background's colour
    for (const auto& each : cases) {
        ItemPicture picture;
        m_box.SetMixed(each.Mixed);
        picture.Dc().SetTextColor(ink);
        picture.Draw(m_box, Style(), each.Action, each.State);
        EXPECT_EQ(picture.PixelAt(1, 1), gdi::ToPixel(each.Background)) << &each - cases;
        EXPECT_EQ(picture.PixelAt(4, 4) == gdi::ToPixel(highlight), each.Background == highlight);
        EXPECT_EQ(picture.Dc().GetBkColor(), gapColor); // the context is as it came
        EXPECT_EQ(picture.Dc().GetTextColor(), ink);
    }
}

TEST_F(LayoutCombobox, AnItemWithoutARecordShowsTheTextOfTheBox)
{
    Make(CBS_DROPDOWNLIST | CBS_HASSTRINGS);
    EXPECT_EQ(m_box.GetStyle(), 0x50B00020U | CBS_DROPDOWNLIST | CBS_HASSTRINGS);
    m_box.SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(_T("x")));
    m_box.SendMessage(CB_SETCURSEL, 0);
    ItemPicture expected;
    CRect rect = cell;
    expected.Dc().FillSolidRect(cell, gapColor);
    ASSERT_GT(expected.Dc().DrawText(_T("x"), 1, rect, 0), 0);
    for (const UINT_PTR none : {UINT_PTR{0}, UINT_PTR{0xFFFFFFFF}, ~UINT_PTR{0}})
        EXPECT_EQ(ItemPicture().Draw(m_box, none), expected) << none;
    expected.Dc().FillSolidRect(cell, ::GetSysColor(COLOR_HIGHLIGHT));
    expected.Dc().SetTextColor(::GetSysColor(COLOR_HIGHLIGHTTEXT));
    expected.Dc().DrawText(_T("x"), 1, rect, 0);
    EXPECT_EQ(ItemPicture().Draw(m_box, 0, ODA_SELECT, ODS_SELECTED), expected);
}

TEST_F(LayoutCombobox, LooksLikeTheBoxesBesideItAndShowsTheFocus)
{
    Make(CBS_DROPDOWNLIST);
    CComboBox beside;
    ASSERT_TRUE(beside.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, CRect(10, 50, 110, 90), &m_parent, 6));
    m_parent.SetFocus();
    test::WidgetOf(m_box).setAttribute(Qt::WA_UnderMouse, false); // which highlights it
    test::WidgetOf(m_box).update();
    const QImage closed = test::PictureOf(m_box);
    EXPECT_EQ(closed, test::PictureOf(beside));
    const std::unique_ptr<QStyle> plain(QStyleFactory::create("Windows")); // has no mark on the frame
    test::WidgetOf(m_box).setStyle(plain.get());
    const QImage before = test::PictureOf(m_box);
    test::WidgetOf(m_box).setFocus(Qt::TabFocusReason);
    EXPECT_NE(test::PictureOf(m_box), before);
    m_box.DestroyWindow();
}

TEST_F(LayoutCombobox, AMixedBoxStaysLightWhenTheUserHasChosen)
{
    const test::DesktopColors colors({{QPalette::Base, filling}});
    Make(CBS_DROPDOWNLIST);
    for (int i = 0; i < 3; ++i)
        m_box.SendMessage(CB_INSERTSTRING, 0, static_cast<LPARAM>(Style()));
    const auto fieldPixel = [this] { return test::PixelOf(m_box, {20, 8}); };
    m_box.SetMixed(1);
    m_box.SendMessage(CB_SETCURSEL, static_cast<WPARAM>(-1));
    EXPECT_EQ(fieldPixel(), ::GetSysColor(COLOR_3DLIGHT));
    test::PressKey(m_box, VK_DOWN);
    EXPECT_EQ(m_box.SendMessage(CB_GETCURSEL), 0);
    EXPECT_EQ(fieldPixel(), ::GetSysColor(COLOR_3DLIGHT));
    test::PressKey(m_box, VK_SPACE);
    test::Settle();
    QAbstractItemView& list = *dynamic_cast<QComboBox&>(test::WidgetOf(m_box)).view();
    ASSERT_TRUE(list.isVisible());
    const QImage shown = list.screen()->grabWindow(list.window()->winId()).toImage();
    const auto placeOf = [&](int item) {
        const QPoint corner = list.viewport()->mapTo(list.window(), QPoint());
        return list.visualRect(list.model()->index(item, 0)).translated(corner);
    };
    const auto itemPixel = [&](int item) { return shown.pixel(placeOf(item).topLeft() + QPoint(1, 1)); };
    EXPECT_EQ(shown.copy(placeOf(1)), shown.copy(placeOf(2))) << "the same style";
    EXPECT_GE(list.visualRect(list.model()->index(0, 0)).height(), 16); // for a symbol of size 10
    EXPECT_EQ(itemPixel(0), gdi::ToPixel(::GetSysColor(COLOR_HIGHLIGHT)));
    EXPECT_EQ(itemPixel(1), gdi::ToPixel(::GetSysColor(COLOR_3DLIGHT)));
}

} // namespace
