// Modal dialogs and menus from the module's templates, and the commands of the user.
#include "support/Gui.h"

#include "support/Process.h"
#include "support/TempPrefix.h"

#include <Application.h>
#include <Glossa.h>
#include <QMenu>
#include <QWindow>
#include <dialogs/resource.h>

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
    std::function<BOOL(k_Dialog&)> m_init;
};

TEST(Dialogs, HaveTheControlsOfTheirTemplate)
{
    k_Dialog dialog;
    int times = 0;
    dialog.m_init = [&times](k_Dialog& shown) {
        EXPECT_EQ(shown.GetDlgItem(IDC_LINE_WIDTH)->SendMessage(CB_GETCOUNT), 10);
        // Places are in proportion to dialog units.
        RECT client;
        shown.GetClientRect(&client);
        EXPECT_EQ(test::WidgetOf(shown).font().pixelSize(), 11); // 8 points
        const QPoint ok = test::WidgetOf(*shown.GetDlgItem(IDOK)).pos();
        EXPECT_NEAR(double(ok.x()) / client.right, 251.0 / 317, 0.01);
        EXPECT_NEAR(double(ok.y()) / client.bottom, 7.0 / 198, 0.01);
        const auto end = [&shown] {
            EXPECT_EQ(test::WidgetOf(shown).focusWidget(),
                      &test::WidgetOf(*shown.GetDlgItem(IDC_SYMBOL_SHAPE)));
            const QRgb border = test::PictureOf(*shown.GetDlgItem(IDOK)).pixel(3, 3);
            EXPECT_NE(border, test::PictureOf(shown).pixel(3, 3)) << "Qt paints no button";
            shown.EndDialog(7);
        };
        times++ == 0 ? shown.EndDialog(7) : QTimer::singleShot(0, end);
        return TRUE;
    };
    for (int i = 0; i < 2; ++i) { // a dialog can be shown again
        EXPECT_EQ(dialog.DoModal(), 7);
        EXPECT_EQ(dialog.m_hWnd, nullptr);
    }
    dialog.m_init = [](k_Dialog&) -> BOOL { AfxThrowMemoryException(); };
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(k_Dialog(4711).DoModal(), -1) << "no template";
    dialog.m_init = [](k_Dialog& shown) -> BOOL {
        CDataExchange exchange{&shown, FALSE};
        CWnd control;
        DDX_Control(&exchange, 4711, control);
        return TRUE;
    };
    EXPECT_EQ(dialog.DoModal(), -1) << "no such control";
}

TEST(Dialogs, StandBeforeAWindowOfTheHost)
{
    // Of a dialog with that owner: its parent, and the id of its transient parent.
    const auto ownerOf = [](WId id) {
        std::pair<const QWidget*, WId> owner;
        k_Dialog dialog(IDD_CURVE_LAYOUT, CWnd::FromHandle(reinterpret_cast<HWND>(id)));
        dialog.m_init = [&owner](k_Dialog& created) {
            QTimer::singleShot(0, [&] {
                const QWidget& shown = test::WidgetOf(created);
                const QWindow* const before = shown.windowHandle()->transientParent();
                owner = {shown.parentWidget(), before != nullptr ? before->winId() : 0};
                CWnd& control = *created.GetDlgItem(IDC_LINE_STYLE);
                control.SetFocus();
                test::PressKey(control, VK_RETURN); // presses OK
            });
            return TRUE;
        };
        EXPECT_EQ(dialog.DoModal(), IDOK);
        return owner;
    };
    ASSERT_TRUE(CanShowWindows());
    QWidget host;
    QWidget inside(&host);
    EXPECT_EQ(ownerOf(inside.winId()), std::pair(static_cast<const QWidget*>(&host), host.winId()));
    QWindow foreign;
    const WId id = foreign.winId();
    const WId known = test::isOnX ? id : 0;
    EXPECT_EQ(ownerOf(id), (std::pair<const QWidget*, WId>(nullptr, known)));
    foreign.destroy();
    EXPECT_EQ(CWnd::FromHandle(reinterpret_cast<HWND>(id)), nullptr);
    EXPECT_EQ(test::isOnX ? "" : test::FailuresOnX("*Host"), "");
}

// Where a control has its text. A group box keeps its frame visible at both sides of it.
QRect RoomOf(const QWidget& control)
{
    QStyleOptionButton button;
    button.initFrom(&control);
    if (dynamic_cast<const QPushButton*>(&control) != nullptr)
        return control.style()->subElementRect(QStyle::SE_PushButtonContents, &button, &control);
    if (dynamic_cast<const QCheckBox*>(&control) != nullptr)
        return control.style()->subElementRect(QStyle::SE_CheckBoxContents, &button, &control);
    QStyleOptionComboBox box;
    box.initFrom(&control);
    if (dynamic_cast<const QComboBox*>(&control) != nullptr)
        return control.style()->subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxEditField,
                                               &control);
    return control.rect() -
           (dynamic_cast<const QGroupBox*>(&control) != nullptr ? QMargins(16, 0, 16, 0) : QMargins());
}

struct Texts {
    k_GlossaW Language;
    std::string Name;

    void ExpectFit(LPCTSTR english, const QWidget& control, int room, const char* added = "")
    {
        const QString text =
            QString::fromUtf16(Language.GetStrippedText(english, _T("Styleatlas"), true)) + added;
        EXPECT_LE(control.fontMetrics().horizontalAdvance(text), room) << Name << ": " << text.toStdString();
    }
};

BOOL CALLBACK ExpectWholeText(HWND window, LPARAM argument)
{
    auto& texts = *reinterpret_cast<Texts*>(argument);
    const QWidget& control = Window::Of(window)->Widget();
    TCHAR english[100];
    if (::GetWindowTextW(window, english, std::size(english)) > 0 && !control.isHidden())
        texts.ExpectFit(english, control, RoomOf(control).width());
    return TRUE;
}

TEST(Dialogs, CutNoTextInAnyLanguage)
{
    const test::ScopedVariable locale("LC_ALL", "zz"), list("LANGUAGE", nullptr);
    std::istringstream languages(test::ReadWhole(LINGUAS));
    std::vector<std::string> seen;
    for (std::string language; languages >> language; seen.push_back(language)) {
        list.Put(language.c_str());
        Texts texts{{}, language};
        for (const UINT id : {IDD_STYLE_ATLAS, IDD_CURVE_LAYOUT}) {
            k_Dialog dialog(id);
            dialog.m_init = [&](k_Dialog& shown) {
                ::EnumChildWindows(shown.m_hWnd, ExpectWholeText, reinterpret_cast<LPARAM>(&texts));
                if (const CWnd* const box = shown.GetDlgItem(IDC_SYMBOL_FILL)) {
                    for (const LPCTSTR fill : {_T("filled"), _T("empty"), _T("empty with dot")})
                        texts.ExpectFit(fill, test::WidgetOf(*box), RoomOf(test::WidgetOf(*box)).width());
                }
                shown.EndDialog(IDOK);
                return TRUE;
            };
            EXPECT_EQ(dialog.DoModal(), IDOK);
        }
        const QHeaderView header(Qt::Horizontal);
        constexpr int columnWidth = 60;
        const int margin = header.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &header);
        texts.ExpectFit(_T("file"), header, columnWidth - 2 * margin, " 32");
    }
    EXPECT_EQ(std::ranges::count(seen, "de"), 1);
}

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

TEST(Menus, SendTheUsersChoiceToTheirOwner)
{
    const test::DesktopColors dark({{QPalette::Base, RGB(0, 0, 0)}});
    k_Owner owner;
    CMenu menu;
    EXPECT_FALSE(menu.LoadMenu(IDD_CURVE_LAYOUT));
    ASSERT_TRUE(menu.LoadMenu(IDR_STYLE_ATLAS_MENU));
    CMenu& popup = *menu.GetSubMenu(0);
    EXPECT_TRUE(popup.ModifyMenu(5, MF_BYPOSITION, ID_EXPAND_ALL, _T("E&xpand all")));
    const auto press = [](Qt::Key key) { return [key](QMenu& shown) { QTest::keyClick(&shown, key); }; };
    const auto clickRight = [](QMenu& shown) {
        const QPoint item = shown.actionGeometry(shown.actions().at(5)).center();
        QTest::mouseClick(&shown, Qt::RightButton, {}, item);
    };
    const std::tuple<std::function<void(QMenu&)>, CPoint, QPoint, bool> cases[] = {
        {press(Qt::Key_X), {-1, -1}, {40, 30}, true}, // opened by the keyboard: at the owner
        {press(Qt::Key_Escape), {200, 100}, {200, 100}, false},
        {clickRight, {200, 100}, {200, 100}, true}};
    for (const auto& [act, point, place, isChosen] : cases) {
        QTimer::singleShot(0, [&act = act, &place = place] {
            auto& shown = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
            EXPECT_EQ(shown.pos(), place);
            EXPECT_EQ(CWnd::GetCapture(), nullptr);
            EXPECT_GT(shown.palette().color(QPalette::Base).lightness(), 200);
            act(shown);
        });
        owner.SetCapture();
        EXPECT_TRUE(popup.TrackPopupMenu(TPM_RIGHTBUTTON, point.x, point.y, &owner));
        EXPECT_FALSE(owner.m_isToldToExpand) << "posted";
        test::Settle();
        EXPECT_EQ(std::exchange(owner.m_isToldToExpand, false), isChosen);
    }
    QTimer::singleShot(0, [&owner] { owner.DestroyWindow(); });
    EXPECT_TRUE(popup.TrackPopupMenu(0, 0, 0, &owner)) << "closes with it";
    EXPECT_FALSE(popup.TrackPopupMenu(0, 0, 0, &owner));
}

} // namespace
