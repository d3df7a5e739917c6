// The colour button: its size, its picture, and what its parent hears for one use of the popup.
#include "support/ColorListener.h"

#include <controls/ColorPicker.h>

namespace
{

using test::PlaceOf;

constexpr COLORREF before = 0x123456; // no colour of the popup
constexpr COLORREF red = 0xFF;
constexpr DWORD ofChild = WS_CHILD | WS_VISIBLE;

class ColorPicker : public testing::Test
{
protected:
    ColorPicker()
    {
        m_picker.Create(_T("a text"), ofChild, RECT{10, 20, 110, 70}, &m_parent, 7);
        m_picker.SetColor(before);
        test::Settle();
    }
    ~ColorPicker() override
    {
        m_parent.DestroyWindow();
        test::Settle();
    }

    // Clicks the button and gives the popup's window.
    CWnd& Drop()
    {
        test::Click(m_picker, {5, 5});
        test::Settle();
        return *CWnd::GetCapture();
    }
    std::string Row(int y, int left, int right) { return test::RowOf(m_picker, y, left, right); }
    COLORREF Swatch() { return test::PixelOf(m_picker, {40, 10}); }

    test::k_ColorListener m_parent{{200, 100, 400, 300}};
    k_ColorPicker m_picker;
};

TEST_F(ColorPicker, IsAsHighAsItsArrowAndAtLeastTwiceAsWide)
{
    EXPECT_EQ(PlaceOf(m_picker), CRect(210, 120, 310, 141));
    CButton ofTemplate;
    ofTemplate.Create(_T("a text"), ofChild, RECT{50, 60, 87, 70}, &m_parent, 8);
    k_ColorPicker attached;
    ASSERT_TRUE(attached.SubclassWindow(ofTemplate.Detach()));
    EXPECT_EQ(PlaceOf(attached), CRect(250, 160, 288, 181));
}

TEST_F(ColorPicker, ShowsItsColorIfThereIsOneAndNoText)
{
    QHelpEvent rest(QEvent::ToolTip, {5, 5}, test::WidgetOf(m_picker).mapToGlobal(QPoint(5, 5)));
    const auto tip = [&] {
        QApplication::sendEvent(&test::WidgetOf(m_picker), &rest);
        return QToolTip::text();
    };
    EXPECT_EQ(tip(), "#563412");
    m_picker.SetMixed(TRUE);
    EXPECT_EQ(tip(), "verschieden");
    m_picker.SetMixed(FALSE);
    const std::string arrow = Row(10, 81, 98);
    EXPECT_EQ(Row(10, 0, 100), "sd" + std::string(78, 'c') + "flhfffffdddfffffsdlh");
    EXPECT_EQ(Row(18, 0, 100), "sd" + std::string(79, 'f') + std::string(17, 'd') + "lh");
    m_picker.SetFocus();
    EXPECT_NE(test::PixelOf(m_picker, {3, 3}), before);
    EXPECT_EQ(test::PixelOf(m_picker, {4, 3}), before);
    for (const auto& [mixed, color] : {std::pair(TRUE, before), {FALSE, CLR_DEFAULT}, {FALSE, red}}) {
        m_picker.SetMixed(mixed);
        m_picker.SetColor(color);
        EXPECT_EQ(Swatch(), color == red ? red : GetSysColor(COLOR_BTNFACE));
    }
    m_picker.EnableWindow(FALSE);
    EXPECT_EQ(Swatch(), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(Row(10, 81, 98), "lhfffffssshhfffsd");
}

TEST_F(ColorPicker, TellsItsParentOfAChoiceAndIsDefiniteAfterItWasGivenUp)
{
    const std::string arrow = Row(10, 81, 98);
    CWnd& popup = Drop();
    EXPECT_EQ(CPoint(PlaceOf(popup).left, PlaceOf(popup).top), CPoint(210, 141));
    EXPECT_EQ(test::Heard(), "dropdown 123456 of 7");
    EXPECT_EQ(Row(10, 81, 98), "sffffffdddddffffs");
    m_picker.m_mixed = TRUE;
    test::MoveMouse(popup, {11, 47});
    EXPECT_EQ(test::Heard(), "change ff of 7");
    EXPECT_FALSE(m_picker.m_mixed);
    EXPECT_EQ(m_picker.GetColor(), before);
    test::PressKey(popup, VK_RETURN);
    EXPECT_EQ(test::Heard(), "closeup ff of 7, ok ff of 7");
    EXPECT_EQ(Swatch(), red);
    EXPECT_EQ(Row(10, 81, 98), arrow);

    m_parent.m_reaction = [this](UINT message) {
        if (message == g_msgSelEndOK)
            m_picker.SetColor(before);
    };
    test::PressKey(Drop(), VK_RETURN);
    EXPECT_EQ(test::Heard(), "dropdown ff of 7, closeup ff of 7, ok ff of 7, change ff of 7");
    EXPECT_EQ(m_picker.GetColor(), before);

    m_picker.m_mixed = TRUE;
    test::PressKey(Drop(), VK_RETURN); // without any move: no choice
    EXPECT_TRUE(m_picker.m_mixed);
    test::Heard();
    test::PressKey(Drop(), VK_ESCAPE);
    EXPECT_EQ(test::Heard(), "dropdown 123456 of 7, closeup 123456 of 7, cancel 123456 of 7");
    EXPECT_FALSE(m_picker.m_mixed);
    EXPECT_EQ(Row(10, 81, 98), arrow) << "pressed still";
    m_parent.m_reaction = [this](UINT message) {
        if (message == g_msgDropdown)
            m_picker.SetColor(red);
    };
    test::PressKey(Drop(), VK_ESCAPE);
    EXPECT_EQ(m_picker.GetColor(), before) << "the colour at the click";
}

} // namespace
