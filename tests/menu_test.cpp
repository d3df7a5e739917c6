// Menus of the module: what stands in them, and what a user's choice becomes.
#include "support/Gui.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QTimer>
#include <WindowSide.h>
#include <afxwin.h>
#include <dialogs/resource.h>
#include <gtest/gtest.h>

namespace
{

constexpr UINT none = 0;

class k_Owner : public CWnd
{
public:
    k_Owner()
    {
        CreateEx(0, AfxRegisterWndClass(0), _T(""), WS_POPUP | WS_VISIBLE, 40, 30, 60, 50, nullptr, 0);
    }
    UINT m_chosen = none;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        EXPECT_EQ(HIWORD(wParam), 0);
        EXPECT_EQ(lParam, 0);
        return CWnd::OnCommand(wParam, lParam);
    }
    afx_msg void OnExpandAll() { m_chosen = ID_EXPAND_ALL; }
    afx_msg void OnCollapseAll() { m_chosen = ID_COLLAPSE_ALL; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(k_Owner, CWnd)
ON_COMMAND(ID_EXPAND_ALL, ThisClass::OnExpandAll)
ON_COMMAND(ID_COLLAPSE_ALL, ThisClass::OnCollapseAll)
END_MESSAGE_MAP()

// The items of the popup: "id text".
std::vector<std::string> ItemsOf(const CMenu& menu)
{
    std::vector<std::string> items;
    for (int i = 0; i < menu.GetMenuItemCount(); ++i) {
        CString text;
        menu.GetMenuString(static_cast<UINT>(i), text, MF_BYPOSITION);
        items.push_back(std::to_string(static_cast<int>(menu.GetMenuItemID(i))) + ' ' +
                        QString::fromUtf16(text.GetString()).toStdString());
    }
    return items;
}

TEST(Menus, HoldWhatTheirTemplateSaysAndWhatItIsChangedTo)
{
    CMenu menu;
    EXPECT_FALSE(menu.LoadMenu(IDD_CURVE_LAYOUT));
    EXPECT_EQ(menu.GetMenuItemCount(), -1);
    ASSERT_TRUE(menu.LoadMenu(IDR_STYLE_ATLAS_MENU));
    EXPECT_EQ(ItemsOf(menu), std::vector<std::string>{"-1 Init file colours"});
    CMenu* const popup = menu.GetSubMenu(0);
    ASSERT_NE(popup, nullptr);
    EXPECT_TRUE(popup->ModifyMenu(0, MF_BYPOSITION | MF_GRAYED, 7, _T("a\tCtrl+A")));
    EXPECT_EQ(ItemsOf(*popup),
              (std::vector<std::string>{"7 a\tCtrl+A", "32772 Set file colors",
                                        "32774 Set main quantity symbols", "32773 Set main quantity colors",
                                        "0 ", "32775 Expand all", "32776 Collapse all"}));
    EXPECT_FALSE(popup->ModifyMenu(7, MF_BYPOSITION, 1, _T("")));
    EXPECT_FALSE(popup->ModifyMenu(0, MF_STRING, 1, _T("")));
    EXPECT_EQ(popup->GetSubMenu(0), nullptr);
    EXPECT_EQ(popup->GetMenuItemID(-1), static_cast<UINT>(-1));
    EXPECT_TRUE(menu.ModifyMenu(0, MF_BYPOSITION, 9, _T("no popup")));
    EXPECT_EQ(menu.GetSubMenu(0), nullptr);
    EXPECT_TRUE(menu.DestroyMenu());
    EXPECT_FALSE(menu.DestroyMenu());
}

// Shows the popup to a user, and gives what the owner has heard of in the end.
UINT ChosenBy(void (*act)(QMenu& shown), CPoint point = {200, 100})
{
    k_Owner owner;
    CMenu menu;
    menu.LoadMenu(IDR_STYLE_ATLAS_MENU);
    menu.GetSubMenu(0)->ModifyMenu(5, MF_BYPOSITION, ID_EXPAND_ALL, _T("E&xpand all"));
    QTimer::singleShot(0, [act, point] {
        auto& shown = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
        EXPECT_EQ(shown.pos(), point.x == -1 ? QPoint(40, 30) : QPoint(point.x, point.y));
        act(shown);
    });
    EXPECT_TRUE(menu.GetSubMenu(0)->TrackPopupMenu(TPM_RIGHTBUTTON, point.x, point.y, &owner));
    EXPECT_TRUE(menu.DestroyMenu());
    EXPECT_EQ(owner.m_chosen, none); // posted
    test::Settle();
    return owner.m_chosen;
}

void Press(QMenu& menu, int key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, key < Qt::Key_Escape ? QString(QChar(key)) : "");
    QApplication::sendEvent(&menu, &event);
}

void Click(QMenu& menu, int item, Qt::MouseButton button)
{
    const QPointF point = menu.actionGeometry(menu.actions().at(item)).center();
    const std::pair<QEvent::Type, Qt::MouseButtons> steps[] = {
        {QEvent::MouseMove, {}}, {QEvent::MouseButtonPress, button}, {QEvent::MouseButtonRelease, {}}};
    for (const auto& [type, buttons] : steps) {
        QMouseEvent event(type, point, menu.mapToGlobal(point), buttons ? button : Qt::NoButton, buttons, {});
        QApplication::sendEvent(&menu, &event);
    }
}

TEST(Menus, SendTheUsersChoiceToTheirOwner)
{
    EXPECT_EQ(ChosenBy([](QMenu& shown) { Click(shown, 6, Qt::LeftButton); }), ID_COLLAPSE_ALL);
    EXPECT_EQ(ChosenBy([](QMenu& shown) { Click(shown, 5, Qt::RightButton); }), ID_EXPAND_ALL);
    EXPECT_EQ(ChosenBy([](QMenu& shown) { Press(shown, Qt::Key_X); }), ID_EXPAND_ALL);
    EXPECT_EQ(ChosenBy([](QMenu& shown) { Press(shown, Qt::Key_Escape); }, {-1, -1}), none);
}

TEST(Menus, CloseWithTheirOwner)
{
    k_Owner owner;
    CMenu menu;
    ASSERT_TRUE(menu.LoadMenu(IDR_STYLE_ATLAS_MENU));
    QTimer::singleShot(0, [&owner] { owner.DestroyWindow(); });
    EXPECT_TRUE(menu.GetSubMenu(0)->TrackPopupMenu(0, 0, 0, &owner));
    EXPECT_FALSE(menu.GetSubMenu(0)->TrackPopupMenu(0, 0, 0, &owner));
}

} // namespace
