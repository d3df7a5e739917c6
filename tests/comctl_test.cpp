// The common controls: results of their messages, and notifications of the user's actions.
#include "support/Gui.h"

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
        m_state = item->itemState;
        CDC::FromHandle(item->hDC)->FillSolidRect(&item->rcItem, owners);
    }
    UINT m_state = 0;
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
    EXPECT_NE(test::PixelOf(m_button, {3, 3}), owners);
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
    for (const WPARAM wrong : {WPARAM{4}, none}) {
        EXPECT_EQ(Send(CB_SETCURSEL, 3), 3);
        EXPECT_EQ(FieldText(), _T("last"));
        for (const UINT message :
             {CB_GETITEMDATA, CB_SETITEMDATA, CB_GETLBTEXTLEN, CB_SETCURSEL, CB_GETCURSEL})
            EXPECT_EQ(Send(message, wrong), CB_ERR) << message; // the last: the selection is gone
    }
    EXPECT_FALSE(HasHeard(CBN_SELCHANGE));
    test::PressKey(m_box, VK_DOWN);
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
    MakeBox(CBS_DROPDOWN, {_T("7"), _T("17")});
    Send(CB_SETCURSEL, 0);
    m_box.SetWindowText(_T("1"));
    QTest::keyClicks(&test::WidgetOf(m_box), "7");
    test::PressKey(m_box, VK_RETURN);
    EXPECT_EQ(FieldText(), _T("17"));
    EXPECT_EQ(Send(CB_GETCURSEL), CB_ERR); // though the list has it
}

} // namespace
