// The colour button: its size, its picture, and what its parent hears for one use of the popup.
#include "support/ColorListener.h"
#include "support/Gui.h"

#include <QApplication>
#include <WindowSide.h>
#include <controls/ColorPicker.h>
#include <gtest/gtest.h>

namespace
{

using test::ColorNotices;

constexpr UINT pickerId = 7;
constexpr COLORREF before = 0x00123456; // no colour of the popup
constexpr COLORREF red = RGB(0xFF, 0, 0);

class k_Parent : public test::k_ColorListener
{
public:
    using k_ColorListener::k_ColorListener;

    int m_clicks = 0;

protected:
    afx_msg void OnClicked() { ++m_clicks; }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(k_Parent, CWnd)
ON_BN_CLICKED(pickerId, ThisClass::OnClicked)
END_MESSAGE_MAP()

class ColorPicker : public testing::Test
{
protected:
    ColorPicker()
    {
        Make(m_picker, 100);
        m_picker.SetColor(before);
    }
    ~ColorPicker() override
    {
        m_parent.DestroyWindow();
        test::Settle();
    }

    void Make(k_ColorPicker& picker, int width)
    {
        const RECT place{10, 20, 10 + width, 70};
        picker.Create(_T("a text"), WS_CHILD | WS_VISIBLE, place, &m_parent, pickerId);
        test::Settle();
    }
    static CRect PlaceOf(const CWnd& window)
    {
        CRect place;
        window.GetWindowRect(&place);
        return place;
    }

    // Clicks the button and gives the popup's window.
    CWnd& Drop()
    {
        test::PressMouse(m_picker, {5, 5});
        test::ReleaseMouse(m_picker, {5, 5});
        test::Settle();
        CWnd* const popup = CWnd::GetCapture();
        EXPECT_NE(popup, nullptr);
        return popup != nullptr ? *popup : m_picker;
    }
    void HoverRed(CWnd& popup) { test::MoveMouse(popup, {2 + 9, 2 + 2 * 18 + 9}); }

    // Face, shadow, highlight, dark; the colour from before; red.
    std::string Row(int y, int left, int right)
    {
        std::string row;
        for (int x = left; x < right; ++x) {
            const COLORREF color = test::PixelOf(m_picker, {x, y});
            row += color == GetSysColor(COLOR_BTNFACE)        ? 'f'
                   : color == GetSysColor(COLOR_BTNSHADOW)    ? 's'
                   : color == GetSysColor(COLOR_BTNHIGHLIGHT) ? 'h'
                   : color == GetSysColor(COLOR_3DDKSHADOW)   ? 'd'
                   : color == before                          ? 'b'
                   : color == red                             ? 'r'
                                                              : '?';
        }
        return row;
    }
    char Swatch() { return Row(10, 40, 41)[0]; }

    k_Parent m_parent{{200, 100, 400, 300}};
    k_ColorPicker m_picker;
};

TEST_F(ColorPicker, IsAsHighAsItsArrowAndAtLeastTwiceAsWide)
{
    EXPECT_EQ(PlaceOf(m_picker), CRect(210, 120, 310, 141));
    k_ColorPicker narrow;
    Make(narrow, 37);
    EXPECT_EQ(PlaceOf(narrow), CRect(210, 120, 248, 141));

    CButton ofTemplate;
    ofTemplate.Create(_T("a text"), WS_CHILD | WS_VISIBLE, RECT{50, 60, 70, 70}, &m_parent, 8);
    k_ColorPicker attached;
    ASSERT_TRUE(attached.SubclassWindow(ofTemplate.Detach()));
    EXPECT_EQ(PlaceOf(attached), CRect(250, 160, 288, 181));
    EXPECT_EQ(attached.GetStyle() & BS_TYPEMASK, BS_OWNERDRAW);
}

TEST_F(ColorPicker, PaintsItsColorIfThereIsOne)
{
    // The arrow is a square of 17 at the right; the swatch ends a pixel before it, and above the lower edge.
    EXPECT_EQ(Row(10, 0, 5), "sdbbb");
    EXPECT_EQ(Row(17, 77, 81).substr(0, 2), "bb");
    EXPECT_EQ(Swatch(), 'b');
    m_picker.SetMixed(TRUE);
    m_picker.SetColor(before);
    EXPECT_EQ(Swatch(), 'f');
    m_picker.SetMixed(FALSE);
    m_picker.SetColor(CLR_DEFAULT);
    EXPECT_EQ(Swatch(), 'f');
    m_picker.SetColor(red);
    EXPECT_EQ(Swatch(), 'r');
    m_picker.EnableWindow(FALSE);
    test::Settle();
    EXPECT_EQ(Swatch(), 'f');
}

TEST_F(ColorPicker, TellsItsParentOfAChoice)
{
    CWnd& popup = Drop();
    EXPECT_EQ(PlaceOf(popup).TopLeft(), CPoint(210, 141));
    EXPECT_EQ(m_parent.Heard(), (ColorNotices{{g_msgDropdown, before, pickerId}}));
    m_picker.m_mixed = TRUE;
    HoverRed(popup);
    EXPECT_EQ(m_parent.Heard(), (ColorNotices{{g_msgSelChange, red, pickerId}}));
    EXPECT_FALSE(m_picker.m_mixed);
    EXPECT_EQ(m_picker.GetColor(), before);
    test::PressKey(popup, VK_RETURN);
    EXPECT_EQ(m_picker.GetColor(), red);
    EXPECT_EQ(Swatch(), 'r');
    EXPECT_EQ(m_parent.Heard(),
              (ColorNotices{{g_msgCloseUp, red, pickerId}, {g_msgSelEndOK, red, pickerId}}));
    EXPECT_EQ(m_parent.m_clicks, 0);

    m_parent.m_reaction = [this](UINT message) {
        if (message == g_msgSelEndOK)
            m_picker.SetColor(before);
    };
    test::PressKey(Drop(), VK_RETURN);
    EXPECT_EQ(m_parent.Heard(), (ColorNotices{{g_msgDropdown, red, pickerId},
                                              {g_msgCloseUp, red, pickerId},
                                              {g_msgSelEndOK, red, pickerId},
                                              {g_msgSelChange, red, pickerId}}));
    EXPECT_EQ(m_picker.GetColor(), before);
}

TEST_F(ColorPicker, TellsItsParentThatTheChoiceWasGivenUp)
{
    m_picker.m_mixed = TRUE;
    test::PressKey(Drop(), VK_ESCAPE);
    EXPECT_EQ(m_parent.Heard(), (ColorNotices{{g_msgDropdown, before, pickerId},
                                              {g_msgCloseUp, before, pickerId},
                                              {g_msgSelEndChange, before, pickerId}}));
    EXPECT_FALSE(m_picker.m_mixed);

    m_picker.m_mixed = TRUE; // an Enter without any move isn't a choice
    test::PressKey(Drop(), VK_RETURN);
    EXPECT_TRUE(m_picker.m_mixed);
}

TEST_F(ColorPicker, LooksPressedWhileItsPopupIsOpen)
{
    const std::string released = Row(10, 81, 98);
    CWnd& popup = Drop();
    m_picker.RedrawWindow();
    const std::string pressed = Row(10, 81, 98);
    EXPECT_NE(pressed, released);
    test::PressKey(popup, VK_ESCAPE);
    test::Settle();
    EXPECT_EQ(Row(10, 81, 98), released);
}

} // namespace
