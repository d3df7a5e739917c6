// Modal dialogs out of the module's templates.
#include "support/Gui.h"

#include <Application.h>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>
#include <WindowSide.h>
#include <afxwin.h>
#include <dialogs/resource.h>
#include <gtest/gtest.h>

namespace
{

class k_Dialog : public CDialog
{
public:
    explicit k_Dialog(UINT id = IDD_CURVE_LAYOUT, CWnd* parent = nullptr) : CDialog(id, parent) {}

    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        return m_init(*this);
    }
    using CDialog::OnCancel;

    LRESULT CountOf(int id) { return GetDlgItem(id)->SendMessage(CB_GETCOUNT); }
    RECT PlaceOf(int id)
    {
        RECT place;
        GetDlgItem(id)->GetWindowRect(&place);
        ScreenToClient(&place);
        return place;
    }

    BOOL (*m_init)(k_Dialog&) = [](k_Dialog&) { return TRUE; };
};

TEST(Dialogs, HaveTheControlsOfTheirTemplate)
{
    k_Dialog dialog;
    dialog.m_init = [](k_Dialog& shown) {
        CString caption;
        shown.GetWindowText(caption);
        EXPECT_EQ(caption, _T("Layout"));
        shown.GetDlgItem(IDC_USE_SYMBOL_COLOR)->GetWindowText(caption);
        EXPECT_EQ(caption, _T("Use symbol color"));
        EXPECT_EQ(shown.CountOf(IDC_SYMBOL_SIZE), 16);
        EXPECT_EQ(shown.CountOf(IDC_LINE_WIDTH), 10);
        EXPECT_EQ(shown.CountOf(IDC_SYMBOL_FILL), 0);
        // Twice as far across in dialog units is twice as far in pixels, and the proportions are the
        // template's.
        RECT client;
        shown.GetClientRect(&client);
        EXPECT_NEAR(double(shown.PlaceOf(IDOK).left) / client.right, 251.0 / 317, 0.01);
        EXPECT_NEAR(double(shown.PlaceOf(IDC_SYMBOL_SHAPE).top) / client.bottom, 21.0 / 198, 0.01);
        shown.EndDialog(7);
        return TRUE;
    };
    EXPECT_EQ(dialog.DoModal(), 7);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(dialog.DoModal(), 7); // as often as one likes
}

TEST(Dialogs, OutliveWhatAHandlerThrows)
{
    class k_Clumsy : public k_Dialog
    {
    public:
        void OnCancel() override
        {
            if (++m_tries == 1)
                AfxThrowFileException(CFileException::diskFull, 0, nullptr);
            k_Dialog::OnCancel();
        }
        int m_tries = 0;
    };
    k_Clumsy dialog;
    dialog.m_init = [](k_Dialog& shown) {
        for (const int delay : {0, 1})
            QTimer::singleShot(delay, [&shown] { test::PressKey(shown, VK_ESCAPE); });
        return TRUE;
    };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.m_tries, 2);
    dialog.m_init = [](k_Dialog&) -> BOOL { AfxThrowMemoryException(); };
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(Dialogs, WithoutATemplateAreNotShown)
{
    k_Dialog dialog(4711);
    EXPECT_EQ(dialog.DoModal(), -1);
}

// The id of the window that a dialog before this one stands before; its parent is the widget, if it has one.
WId OwnerOfDialogBefore(WId id, const QWidget* widget)
{
    static WId owner;
    static const QWidget* parent;
    k_Dialog dialog(IDD_CURVE_LAYOUT, CWnd::FromHandle(reinterpret_cast<HWND>(id)));
    dialog.m_init = [](k_Dialog& created) {
        QTimer::singleShot(0, [&created] {
            const QWidget& shown = WindowSide::Of(created.m_hWnd)->Widget();
            const QWindow* const before = shown.windowHandle()->transientParent();
            owner = before != nullptr ? before->winId() : 0;
            parent = shown.parentWidget();
            created.EndDialog(IDOK);
        });
        return TRUE;
    };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(parent, widget);
    return owner;
}

TEST(Dialogs, StandBeforeAWindowOfTheHost)
{
    ASSERT_TRUE(CanShowWindows());
    QWidget host;
    QWidget inside(&host);
    EXPECT_EQ(OwnerOfDialogBefore(inside.winId(), &host), host.winId());
    QWindow foreign;
    const WId id = foreign.winId();
    EXPECT_EQ(OwnerOfDialogBefore(id, nullptr), QGuiApplication::platformName() == "xcb" ? id : 0);
    foreign.destroy();
    EXPECT_EQ(CWnd::FromHandle(reinterpret_cast<HWND>(id)), nullptr);
}

} // namespace
