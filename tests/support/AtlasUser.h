// The user of the style atlas dialog, as a host opens it: clicks, answers the dialogs above it, and chooses
// from its menu.
#pragma once

#include "Gui.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <WindowSide.h>
#include <dialogs/CurveLayoutDlg.h>
#include <dialogs/StyleAtlasDialog.h>
#include <filesystem>
#include <functional>
#include <include/styleatlas.h>

namespace test
{

inline QWidget& WidgetOf(const CWnd& window)
{
    return WindowSide::Of(window.m_hWnd)->Widget();
}

// The window in front, if it is a dialog of this kind; else null.
template <class Dialog> Dialog* FrontDialog()
{
    WindowSide* const front = WindowSide::Of(QApplication::activeModalWidget());
    return front != nullptr ? dynamic_cast<Dialog*>(front->Attached) : nullptr;
}

// Opens the dialog, has the user act, and closes it by its cross if it is open still. Gives what the host
// gets.
inline int Edit(const std::function<void(k_StyleAtlasDialog&)>& user)
{
    QTimer::singleShot(0, [&] {
        QWidget* const shown = QApplication::activeModalWidget();
        user(*FrontDialog<k_StyleAtlasDialog>());
        shown->close();
    });
    return EditStyleAtlas(0);
}

inline void Click(const k_StyleAtlasDialog& dialog, int id)
{
    QTest::mouseClick(&WidgetOf(*dialog.GetDlgItem(id)), Qt::LeftButton);
}

// Clicks a button and names a file in the dialog that it opens, to be overwritten if that is asked; it can
// vanish as soon as it is chosen. Gives the title of that dialog and the name that it came up with.
inline QString Pick(const k_StyleAtlasDialog& dialog, int id, const std::filesystem::path& file,
                    bool vanishes = false)
{
    QString asked;
    QTimer::singleShot(0, [&] {
        Settle();
        auto& shown = dynamic_cast<QFileDialog&>(*QApplication::activeModalWidget());
        auto& name = *shown.findChild<QLineEdit*>();
        asked = shown.windowTitle() + ' ' + name.text();
        name.setText(file.c_str());
        QObject::connect(&shown, &QDialog::accepted, [&] { return vanishes && remove(file); });
        const auto answer = [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Y); };
        QTimer::singleShot(0, &shown, answer);
        QTest::keyClick(&name, Qt::Key_Return);
        if (shown.isVisible())
            shown.reject();
    });
    Click(dialog, id);
    return asked;
}

// Clicks twice into the top row and, if an editor of styles opens, has it choose the next line width.
inline void EditCell(k_StyleAtlasDialog& dialog, int x)
{
    QTimer::singleShot(0, [] {
        if (auto* const editor = FrontDialog<k_CurveLayoutDlg>()) {
            PressKey(editor->m_LineWidthCombo, VK_DOWN);
            QTest::keyClick(&WidgetOf(*editor), Qt::Key_Return);
        }
    });
    ClickTwice(dialog.m_ColumnTree.m_Tree, {x, 5});
    Settle();
}

// Opens the menu at a window and chooses from it; gives all that stands in it.
inline QString Choose(const CWnd& window, int item)
{
    QString texts;
    QTimer::singleShot(0, [&] {
        auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
        for (const QAction* const action : menu.actions())
            texts += action->text() + '|';
        const QPoint middle = menu.actionGeometry(menu.actions().at(item)).center();
        QTest::mouseClick(&menu, Qt::LeftButton, {}, middle);
    });
    QWidget& widget = WidgetOf(window);
    const QPoint middle = widget.mapTo(widget.window(), widget.rect().center());
    QTest::mouseClick(widget.window()->windowHandle(), Qt::RightButton, {}, middle);
    Settle();
    return texts;
}

} // namespace test
