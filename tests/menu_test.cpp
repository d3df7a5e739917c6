// Menus of the module: what stands in them, and what a user's choice becomes.
#include "support/Gui.h"

#include <QApplication>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <dialogs/resource.h>
#include <gtest/gtest.h>

namespace
{

class k_Owner : public CWnd
{
public:
    k_Owner() { CreateEx(0, AfxRegisterWndClass(0), _T(""), WS_POPUP, 40, 30, 60, 50, nullptr, 0); }
    bool m_isToldToExpand = false;

protected:
    afx_msg void OnExpandAll() { m_isToldToExpand = true; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(k_Owner, CWnd)
ON_COMMAND(ID_EXPAND_ALL, ThisClass::OnExpandAll)
END_MESSAGE_MAP()

class Menus : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_menu.LoadMenu(IDR_STYLE_ATLAS_MENU)); }

    k_Owner m_owner;
    CMenu m_menu;
};

TEST_F(Menus, HoldWhatTheirTemplateSaysAndWhatTheyAreChangedTo)
{
    CMenu& popup = *m_menu.GetSubMenu(0);
    EXPECT_TRUE(popup.ModifyMenu(0, MF_BYPOSITION, 7, _T("&a\tCtrl+A")));
    EXPECT_FALSE(popup.ModifyMenu(7, MF_BYPOSITION, 1, _T("")));
    EXPECT_FALSE(popup.ModifyMenu(1, MF_STRING, 1, _T("")));
    QString items;
    for (int i = -1; i <= popup.GetMenuItemCount(); ++i) {
        CString text;
        popup.GetMenuString(static_cast<UINT>(i), text, MF_BYPOSITION);
        items += QString::number(static_cast<int>(popup.GetMenuItemID(i))) + QString::fromUtf16(text) + '|';
    }
    EXPECT_EQ(items, "-1|7&a\tCtrl+A|32772Set file colors|32774Set main quantity symbols|"
                     "32773Set main quantity colors|0|32775Expand all|32776Collapse all|-1|");
    EXPECT_TRUE(m_menu.ModifyMenu(0, MF_BYPOSITION, 9, _T("no popup")));
    EXPECT_EQ(m_menu.GetSubMenu(0), nullptr);
    EXPECT_FALSE(CMenu().LoadMenu(IDD_CURVE_LAYOUT));
}

TEST_F(Menus, SendTheUsersChoiceToTheirOwner)
{
    m_menu.GetSubMenu(0)->ModifyMenu(5, MF_BYPOSITION, ID_EXPAND_ALL, _T("E&xpand all"));
    const struct {
        void (*Act)(QMenu& shown);
        CPoint Point;
        bool IsChosen;
    } cases[] = {
        {[](QMenu& shown) { QTest::keyClick(&shown, Qt::Key_X); }, {-1, -1}, true},
        {[](QMenu& shown) { QTest::keyClick(&shown, Qt::Key_Escape); }, {200, 100}, false},
        {[](QMenu& shown) {
             const QPoint item = shown.actionGeometry(shown.actions().at(5)).center();
             QTest::mouseClick(&shown, Qt::RightButton, {}, item);
         },
         {200, 100},
         true},
    };
    for (const auto& c : cases) {
        QTimer::singleShot(0, [&c] {
            auto& shown = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
            EXPECT_EQ(shown.pos(), c.Point.x == -1 ? QPoint(40, 30) : QPoint(c.Point.x, c.Point.y));
            c.Act(shown);
        });
        EXPECT_TRUE(m_menu.GetSubMenu(0)->TrackPopupMenu(TPM_RIGHTBUTTON, c.Point.x, c.Point.y, &m_owner));
        EXPECT_FALSE(m_owner.m_isToldToExpand) << "posted";
        test::Settle();
        EXPECT_EQ(std::exchange(m_owner.m_isToldToExpand, false), c.IsChosen);
    }
    QTimer::singleShot(0, [this] { m_owner.DestroyWindow(); });
    EXPECT_TRUE(m_menu.GetSubMenu(0)->TrackPopupMenu(0, 0, 0, &m_owner)) << "closes with it";
    EXPECT_FALSE(m_menu.GetSubMenu(0)->TrackPopupMenu(0, 0, 0, &m_owner));
}

} // namespace
