// The system's colour dialog, answered by a user.
#include "support/Gui.h"

#include <QtWidgets>

namespace
{

// The program's own custom colours are separate.
TEST(ColorDialog, BeginsWithItsColorAndHasCustomColorsOfItsOwn)
{
    const test::DesktopColors dark({{QPalette::Base, RGB(0, 0, 0)}});
    const QTemporaryDir settings; // where Qt keeps custom colours
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    std::vector<COLORREF> custom(16, 0xC0FFEE);
    CColorDialog dialog(0x123456, CC_FULLOPEN, nullptr);
    dialog.m_cc.lpCustColors = custom.data();
    QColorDialog::setCustomColor(0, Qt::green);
    test::AnswerNext<QColorDialog>([](QColorDialog& shown) {
        EXPECT_TRUE(shown.testOption(QColorDialog::DontUseNativeDialog)) << "which has other custom colours";
        EXPECT_GT(shown.palette().color(QPalette::Base).lightness(), 200);
        EXPECT_EQ(shown.currentColor(), QColor(0x56, 0x34, 0x12));
        EXPECT_EQ(QColorDialog::customColor(15), QColor(0xEE, 0xFF, 0xC0));
        shown.setCurrentColor(QColor(0x11, 0x22, 0x33));
        for (QPushButton* const button : shown.findChildren<QPushButton*>()) {
            if (button->text().contains("benutzerdefiniert")) // the tests of this program are in German
                button->click();
        }
        shown.reject();
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.GetColor(), 0x123456U);
    EXPECT_EQ(std::exchange(custom[0], 0xC0FFEE), 0x332211U);
    EXPECT_EQ(custom, std::vector<COLORREF>(16, 0xC0FFEE));
    const QSettings kept(QSettings::UserScope, "QtProject");
    EXPECT_EQ(QColor::fromRgb(kept.value("Qt/customColors/0").toUInt()), QColor(Qt::green));
}

} // namespace
