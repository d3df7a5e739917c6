// The system's colour dialog, answered by a user.
#include "support/Gui.h"

#include <QtWidgets>

namespace
{

constexpr COLORREF initial = 0x123456;
constexpr COLORREF picked = 0x332211;

class ColorDialog : public testing::Test
{
protected:
    ColorDialog()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
        m_owner.CreateEx(0, AfxRegisterWndClass(0), _T(""), WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr, 0);
    }

    // Shows the dialog to a user who picks a colour and then acts.
    INT_PTR Show(const std::function<void(QColorDialog&)>& act)
    {
        test::AnswerNext<QColorDialog>([&act](QColorDialog& shown) {
            EXPECT_EQ(shown.currentColor(), QColor(0x56, 0x34, 0x12));
            shown.setCurrentColor(QColor(0x11, 0x22, 0x33));
            act(shown);
        });
        return m_dialog.DoModal();
    }

    QTemporaryDir m_settings; // where Qt keeps custom colours
    CWnd m_owner;
    CColorDialog m_dialog{initial, CC_FULLOPEN, &m_owner};
};

TEST_F(ColorDialog, GivesTheColorOrKeepsTheOneAtOpening)
{
    EXPECT_EQ(Show(&QDialog::reject), IDCANCEL);
    EXPECT_EQ(m_dialog.GetColor(), initial);
    EXPECT_EQ(Show(&QDialog::accept), IDOK);
    EXPECT_EQ(m_dialog.GetColor(), picked);
}

// The program's own custom colours are separate.
TEST_F(ColorDialog, HasCustomColorsOfItsOwn)
{
    std::vector<COLORREF> custom(16, 0xC0FFEE);
    m_dialog.m_cc.lpCustColors = custom.data();
    QColorDialog::setCustomColor(0, Qt::green);
    const auto addOne = [](QColorDialog& shown) {
        EXPECT_EQ(QColorDialog::customColor(15), QColor(0xEE, 0xFF, 0xC0));
        for (QPushButton* const button : shown.findChildren<QPushButton*>()) {
            if (button->text().contains("Custom"))
                button->click();
        }
        shown.reject();
    };
    EXPECT_EQ(Show(addOne), IDCANCEL);
    std::vector<COLORREF> expected(16, 0xC0FFEE);
    expected[0] = picked;
    EXPECT_EQ(custom, expected);
    QSettings kept(QSettings::UserScope, "QtProject");
    EXPECT_EQ(QColor::fromRgb(kept.value("Qt/customColors/0").toUInt()), QColor(Qt::green));
}

} // namespace
