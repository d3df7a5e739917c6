// Modal dialogs out of the module's templates.
#include "support/Gui.h"

#include <ControlClass.h>
#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <WindowSide.h>
#include <afxwin.h>
#include <dialogs/resource.h>
#include <gtest/gtest.h>

namespace
{

// Every control of a template is one of these here: it keeps the texts that it is given.
class Stand : public WidgetWindow<QLabel>
{
public:
    using WidgetWindow::WidgetWindow;
    QString Text() const override { return text(); }
    void SetText(const QString& text) override { setText(text); }
    QStringList Added;

protected:
    LRESULT OnDefault(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != CB_ADDSTRING)
            return WidgetWindow::OnDefault(message, wParam, lParam);
        Added += QString::fromUtf16(reinterpret_cast<const char16_t*>(lParam));
        return Added.size() - 1;
    }
};

WindowSide& MakeStand(DWORD /*style*/, QWidget* parent)
{
    return *new Stand(parent);
}

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
    using CDialog::OnOK;

    Stand& Control(int id) { return static_cast<Stand&>(*WindowSide::Of(::GetDlgItem(m_hWnd, id))); }

    BOOL (*m_init)(k_Dialog&) = [](k_Dialog&) { return TRUE; };
};

class Dialogs : public testing::Test
{
protected:
    const ControlClass m_button{u"Button", &MakeStand};
    const ControlClass m_combo{u"ComboBox", &MakeStand};
    const ControlClass m_static{u"Static", &MakeStand};
};

TEST_F(Dialogs, HaveTheControlsOfTheirTemplate)
{
    k_Dialog dialog;
    dialog.m_init = [](k_Dialog& shown) {
        CString caption;
        shown.GetWindowText(caption);
        EXPECT_EQ(caption, _T("Layout"));
        EXPECT_EQ(shown.Control(IDC_USE_SYMBOL_COLOR).Text(), u"Use symbol color");
        EXPECT_EQ(shown.Control(IDC_SYMBOL_SIZE).Added.join(u' '),
                  u"2 3 4 5 6 7 8 9 10 11 12 13 14 15 20 25");
        EXPECT_EQ(shown.Control(IDC_LINE_WIDTH).Added.size(), 10);
        EXPECT_TRUE(shown.Control(IDC_SYMBOL_FILL).Added.isEmpty());
        // Twice as far across in dialog units is twice as far in pixels, and the proportions are the
        // template's.
        const QRect ok = shown.Control(IDOK).geometry();
        const QRect shape = shown.Control(IDC_SYMBOL_SHAPE).geometry();
        RECT client;
        shown.GetClientRect(&client);
        EXPECT_NEAR(double(ok.x()) / client.right, 251.0 / 317, 0.01);
        EXPECT_NEAR(double(shape.y()) / client.bottom, 21.0 / 198, 0.01);
        shown.EndDialog(7);
        return TRUE;
    };
    EXPECT_EQ(dialog.DoModal(), 7);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(dialog.DoModal(), 7); // as often as one likes
}

TEST_F(Dialogs, EndAsTheUserWants)
{
    const auto endBy = [](UINT message, WPARAM wParam) {
        static UINT sent;
        static WPARAM with;
        sent = message;
        with = wParam;
        k_Dialog dialog;
        dialog.m_init = [](k_Dialog& shown) {
            QTimer::singleShot(0, &WindowSide::Of(shown.m_hWnd)->Widget(), [&shown] {
                if (sent == WM_KEYDOWN)
                    test::PressKey(shown, static_cast<UINT>(with));
                else
                    shown.SendMessage(sent, with);
            });
            return TRUE;
        };
        return dialog.DoModal();
    };
    EXPECT_EQ(endBy(WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED)), IDOK);
    EXPECT_EQ(endBy(WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED)), IDCANCEL);
    EXPECT_EQ(endBy(WM_KEYDOWN, VK_ESCAPE), IDCANCEL);
}

TEST_F(Dialogs, OutliveWhatAHandlerThrows)
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

TEST_F(Dialogs, WithoutATemplateAreNotShown)
{
    k_Dialog dialog(4711);
    EXPECT_EQ(dialog.DoModal(), -1);
}

} // namespace
