// The common controls: results of their messages, and notifications of the user's actions.
#include "support/Gui.h"

#include <QtWidgets>
#include <array>
#include <set>

namespace
{

constexpr UINT controlId = 5;
constexpr WPARAM none = static_cast<WPARAM>(-1);
constexpr COLORREF owners = RGB(1, 2, 3);
const CRect place(10, 10, 110, 60);

class k_Parent : public CWnd
{
public:
    BOOL OnCommand(WPARAM wParam, LPARAM /*lParam*/) override
    {
        m_heard = wParam;
        return TRUE;
    }
    WPARAM m_heard = none;
};

class k_DrawnButton : public CButton
{
public:
    void DrawItem(LPDRAWITEMSTRUCT item) override
    {
        EXPECT_EQ(item->rcItem, CRect(0, 0, place.Width(), place.Height()));
        EXPECT_EQ(item->itemAction, ODA_DRAWENTIRE);
        m_state = item->itemState;
        EXPECT_EQ(CDC::FromHandle(item->hDC)->GetBkColor(), GetSysColor(COLOR_BTNFACE));
        CDC::FromHandle(item->hDC)->FillSolidRect(&item->rcItem, owners);
    }
    UINT m_state = 0;
};

// Records the item, action, state and data of each draw.
class k_DrawnBox : public CComboBox
{
public:
    void MeasureItem(LPMEASUREITEMSTRUCT item) override { item->itemHeight = 10 + item->itemID; }
    void DrawItem(LPDRAWITEMSTRUCT item) override
    {
        EXPECT_GT(CDC::FromHandle(item->hDC)->GetTextExtent(_T("x")).cy, 40);
        EXPECT_EQ(CDC::FromHandle(item->hDC)->GetTextColor(), GetSysColor(COLOR_WINDOWTEXT));
        EXPECT_EQ(item->CtlType, ODT_COMBOBOX);
        m_drawn.insert({item->itemID, item->itemAction, item->itemState, static_cast<UINT>(item->itemData)});
    }
    std::set<std::array<UINT, 4>> m_drawn;
};

class Controls : public testing::Test
{
protected:
    Controls()
    {
        constexpr DWORD shown = WS_POPUP | WS_VISIBLE;
        m_parent.CreateEx(0, AfxRegisterWndClass(0), _T(""), shown, 0, 0, 200, 100, nullptr, 0);
    }
    void MakeButton(DWORD style)
    {
        ASSERT_TRUE(m_button.Create(_T("text"), style | WS_CHILD | WS_VISIBLE, place, &m_parent, controlId));
        test::Settle();
    }
    void MakeBox(DWORD style, std::initializer_list<LPCTSTR> texts)
    {
        ASSERT_TRUE(m_box.Create(style | WS_CHILD | WS_VISIBLE, place, &m_parent, controlId));
        for (const LPCTSTR text : texts)
            Send(CB_ADDSTRING, 0, text);
    }
    // Whether these are the notifications since the last call.
    bool HasHeard(UINT code) { return std::exchange(m_parent.m_heard, none) == MAKEWPARAM(controlId, code); }

    UINT StateShown()
    {
        EXPECT_EQ(test::PixelOf(m_button, {3, 3}), owners);
        return m_button.m_state;
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPCTSTR text = nullptr)
    {
        return m_box.SendMessage(message, wParam, reinterpret_cast<LPARAM>(text));
    }
    CString FieldText()
    {
        CString text;
        m_box.GetWindowText(text);
        return text;
    }

    k_Parent m_parent;
    k_DrawnButton m_button;
    CComboBox m_box;
};

TEST_F(Controls, AButtonIsDrawnByItsOwner)
{
    MakeButton(BS_PUSHBUTTON);
    EXPECT_NE(test::PixelOf(m_button, {0, 25}), test::PixelOf(m_button, {5, 25})); // a frame
    test::PressKey(m_button, VK_RETURN);
    EXPECT_TRUE(HasHeard(BN_CLICKED));
    m_button.ModifyStyle(0, BS_OWNERDRAW);
    EXPECT_EQ(StateShown(), 0U);
    test::PressKey(m_button, VK_RETURN); // belongs to the dialog's default button
    m_button.SetFocus();
    test::PressMouse(m_button, {5, 5});
    EXPECT_EQ(StateShown(), ODS_FOCUS | ODS_SELECTED);
    test::ReleaseMouse(m_button, {-5, 5});
    EXPECT_EQ(StateShown(), ODS_FOCUS);
    m_button.EnableWindow(FALSE);
    EXPECT_EQ(StateShown(), ODS_DISABLED);
    EXPECT_FALSE(HasHeard(BN_CLICKED));
}

TEST_F(Controls, AComboBoxIsMeasuredAndDrawnByItsOwner)
{
    const test::DesktopColors colors({{QPalette::Text, owners}});
    LOGFONTW large{};
    large.lfHeight = -40;
    CFont font;
    font.CreateFontIndirect(&large);
    k_DrawnBox box;
    box.Create(CBS_DROPDOWNLIST | CBS_OWNERDRAWVARIABLE | WS_CHILD | WS_VISIBLE, place, &m_parent, controlId);
    box.SetFont(&font);
    box.MoveWindow(place);
    EXPECT_GT(test::PlaceOf(box).Height(), 40);
    for (LPARAM data = 100; data < 112; ++data)
        box.SendMessage(CB_INSERTSTRING, none, data);
    EXPECT_NE(test::PixelOf(box, {99, 10}), test::PixelOf(box, {95, 10})); // a frame
    box.SendMessage(CB_SETCURSEL, 2);
    box.EnableWindow(FALSE);
    test::Settle();
    EXPECT_TRUE(box.m_drawn.contains({2, 1, 0x1004, 102})) << "at once";
    box.EnableWindow(TRUE);
    test::Settle();
    const COLORREF corner = test::PixelOf(box, {4, 4});
    EXPECT_TRUE(std::exchange(box.m_drawn, {}).contains({UINT(-1), 1, 0x1000, UINT(-1)}));
    box.SetFocus();
    test::Settle();
    EXPECT_TRUE(box.m_drawn.contains({2, 1, 0x1011, 102}));
    m_parent.SetFocus();
    test::Settle();
    EXPECT_TRUE(box.m_drawn.contains({2, 1, 0x1000, 102}));
    EXPECT_EQ(test::PixelOf(box, {4, 4}), corner);
    box.SetFocus();
    box.SendMessage(CB_SETITEMDATA, 2, 7);
    test::PixelOf(box, {0, 0});
    test::PressKey(box, VK_SPACE); // opens the list
    test::Settle();
    for (const auto& draw : {std::array{2U, 1U, 0x1011U, 7U}, {2, 3, 0x11, 7}, {11, 1, 0, 111}})
        EXPECT_TRUE(box.m_drawn.contains(draw)) << testing::PrintToString(box.m_drawn);
    const QAbstractItemView& list = *dynamic_cast<QComboBox&>(test::WidgetOf(box)).view();
    EXPECT_EQ(list.visualRect(list.model()->index(7, 0)).height(), 17);
}

TEST_F(Controls, AComboBoxAnswersForItemsThatItHasAndForOthers)
{
    MakeBox(CBS_DROPDOWNLIST, {_T("one"), _T("two")});
    EXPECT_EQ(Send(CB_GETCURSEL), CB_ERR); // the first item isn't selected by itself
    EXPECT_EQ(Send(CB_INSERTSTRING, 1, _T("between")), 1);
    EXPECT_EQ(Send(CB_INSERTSTRING, none, _T("last")), 3);
    EXPECT_EQ(Send(CB_INSERTSTRING, 5, _T("nowhere")), CB_ERR);
    EXPECT_EQ(Send(CB_INSERTSTRING, none - 1, _T("nowhere")), CB_ERR);
    EXPECT_EQ(Send(CB_GETCOUNT), 4);
    EXPECT_NE(m_box.SendMessage(CB_SETITEMDATA, 1, -7), CB_ERR);
    EXPECT_EQ(Send(CB_GETITEMDATA, 1), -7);
    CString text;
    m_box.GetLBText(1, text);
    EXPECT_EQ(text, _T("between"));
    EXPECT_NE(test::PixelOf(m_box, {0, 10}), test::PixelOf(m_box, {5, 10})); // a frame
    for (const WPARAM wrong : {WPARAM{4}, none}) {
        m_box.GetLBText(static_cast<int>(wrong), text);
        EXPECT_TRUE(text.IsEmpty());
        EXPECT_EQ(Send(CB_SETCURSEL, 3), 3);
        EXPECT_EQ(FieldText(), _T("last"));
        for (const UINT message :
             {CB_GETITEMDATA, CB_SETITEMDATA, CB_GETLBTEXTLEN, CB_SETCURSEL, CB_GETCURSEL})
            EXPECT_EQ(Send(message, wrong), CB_ERR) << message; // the last: the selection is gone
    }
    EXPECT_FALSE(HasHeard(CBN_SELCHANGE));
    QAccessibleInterface* const object = QAccessible::queryAccessibleInterface(&test::WidgetOf(m_box));
    EXPECT_EQ(object->text(QAccessible::Name), "") << "without a text before it, and nothing selected";
    test::PressKey(m_box, VK_DOWN);
    EXPECT_EQ(object->text(QAccessible::Name), "one");
    EXPECT_EQ(FieldText(), _T("one"));
    EXPECT_TRUE(HasHeard(CBN_SELCHANGE));
}

TEST_F(Controls, AComboBoxSelectsTheNextItemThatBeginsWithAText)
{
    MakeBox(CBS_DROPDOWN, {_T("2"), _T("10"), _T("Abc"), _T("11"), _T("abd"), _T(" 3")});
    const std::tuple<int, LPCTSTR, LRESULT> cases[] = {
        {-1, _T("1"), 1}, {1, _T("1"), 3},   {3, _T("1"), 1},        {99, _T("1"), 1},
        {2, _T("AB"), 4}, {4, _T("abd"), 4}, {-1, _T("16"), CB_ERR}, {-1, _T(""), CB_ERR}};
    for (const auto& [start, text, result] : cases) {
        Send(CB_SETCURSEL, 5);
        EXPECT_EQ(Send(CB_SELECTSTRING, static_cast<WPARAM>(start), text), result);
        EXPECT_EQ(Send(CB_GETCURSEL), result == CB_ERR ? 5 : result);
    }
}

TEST_F(Controls, WhatIsTypedIntoAComboBoxSelectsNothing)
{
    MakeBox(CBS_DROPDOWN, {});
    m_box.SetCueBanner(_T("cue"));
    EXPECT_EQ(test::WidgetOf(m_box).findChild<QLineEdit*>()->placeholderText(), "cue");
    m_box.SetWindowText(_T("7"));
    for (LPCTSTR const text : {_T("7"), _T("12753"), _T("1275")})
        Send(CB_ADDSTRING, 0, text);
    EXPECT_EQ(FieldText(), _T("7"));
    Send(CB_SETCURSEL, 0);
    test::Settle();
    m_box.SetFocus();
    QTest::keyClick(&test::WidgetOf(m_box), Qt::Key_Home);
    QTest::keyClicks(&test::WidgetOf(m_box), "12"); // the cursor stays
    QTest::keyClick(&test::WidgetOf(m_box), Qt::Key_End);
    QTest::keyClicks(&test::WidgetOf(m_box), "5");
    test::PressKey(m_box, VK_RETURN);
    EXPECT_EQ(FieldText(), _T("1275"));
    EXPECT_EQ(Send(CB_GETCURSEL), CB_ERR); // though the list has it
    const auto isGrey = [&] {
        const QPalette colors = test::WidgetOf(m_box).findChild<QLineEdit*>()->palette();
        return colors.color(QPalette::Text) == colors.color(QPalette::PlaceholderText);
    };
    test::Settle();
    m_box.SetFocus();
    EXPECT_FALSE(isGrey());
    m_parent.SetFocus();
    EXPECT_TRUE(isGrey()) << "not taken";
    m_box.SetFocus();
    EXPECT_FALSE(isGrey());
    m_parent.SetFocus();
    Send(CB_SETCURSEL, 0);
    EXPECT_FALSE(isGrey());
    for (int i = 0; i < 9; ++i)
        Send(CB_ADDSTRING, 0, _T("more"));
    auto& shown = dynamic_cast<QComboBox&>(test::WidgetOf(m_box));
    shown.showPopup();
    EXPECT_EQ(shown.view()->verticalScrollBar()->maximum(), 0) << "all are seen";
    shown.hidePopup();
}

TEST_F(Controls, AComboBoxTurnsWithTheWheelWhileItHasTheFocus)
{
    MakeBox(CBS_DROPDOWNLIST, {_T("one"), _T("two")});
    test::Settle();
    m_parent.SetFocus();
    EXPECT_EQ(test::WidgetOf(m_box).focusPolicy(), Qt::StrongFocus) << "the wheel brings no focus";
    test::TurnWheel(m_box, -120);
    EXPECT_EQ(Send(CB_GETCURSEL), CB_ERR);
    m_box.SetFocus();
    test::TurnWheel(m_box, -120);
    EXPECT_EQ(Send(CB_GETCURSEL), 0);
}

} // namespace
