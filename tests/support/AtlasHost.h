// A German host of the style atlas, with three quantities in the unit library, the last two in one group; and
// the user of its dialog, who clicks, answers the dialogs above it, and chooses from its menu.
#pragma once

#include "Gui.h"
#include "LayoutBytes.h"
#include "TempPrefix.h"

#include <QtWidgets>
#include <dialogs/CurveLayoutDlg.h>
#include <dialogs/StyleAtlasDialog.h>
#include <frame/StyleAtlasApp.h>
#include <include/styleatlas.h>
#include <platform/system/MessageBoxHook.h>

namespace test
{

inline WORD devices[] = {0, 65535, 7};
inline WORD quantities[] = {1, 2, 2};
inline int subQuantities[] = {0, 70000, -2};
inline WORD indexes[] = {0, 300, 1};
inline DWORD flags[] = {0, 0x80000001, 5};

inline void ReportUnits(WORD** d, WORD** q, int** s, WORD** i, DWORD** f, int* count)
{
    std::tie(*d, *q, *s, *i, *f, *count) = std::tuple(devices, quantities, subQuantities, indexes, flags, 3);
}

inline const WCHAR* WINAPI NameUnit(DWORD quantity, DWORD subQuantity, DWORD, DWORD, DWORD, int mode)
{
    return quantity == 1 ? _T("") : mode == 1 && subQuantity == 70000 - 65536 ? _T("\x3A9") : _T("U");
}

inline QString told; // in message boxes

// The window in front, if it is a dialog of this kind; else null.
template <class Dialog> Dialog* FrontDialog()
{
    Window* const front = Window::Of(QApplication::activeModalWidget());
    return front != nullptr ? dynamic_cast<Dialog*>(front->Attached) : nullptr;
}

// Behind a message the windows are painted. While a table is loaded, the tree shows none of its rows.
inline int TellUser(HWND /*owner*/, LPCWSTR text, LPCWSTR caption, UINT type)
{
    if (QWidget* const dialog = QApplication::activeModalWidget())
        dialog->grab();
    const auto* const atlas = FrontDialog<k_StyleAtlasDialog>();
    if (atlas != nullptr && QStringView(text).contains(u"geladen")) {
        EXPECT_EQ(atlas->m_ColumnTree.m_Tree.GetNextItem(nullptr, TVGN_ROOT), nullptr);
    }
    told += QString("%1: %2 %3").arg(caption).arg(text).arg(type);
    return IDOK;
}

class AtlasHost : public testing::Test
{
protected:
    AtlasHost()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_prefix.Path().c_str());
        g_App.m_hUnitLibrary = reinterpret_cast<HMODULE>(&g_App);
        g_App.m_pfnGetQuantities = ReportUnits;
        g_App.m_pfnGetSymbol = NameUnit;
        told.clear();
        SetMessageBoxHook(TellUser);
        g_StyleAtlas.FilePath = _T("");
        m_prefix.MakeFolder("ProgramData/Halvorn/Bench");
        StyleAtlasSetApplication(u"Bench");
        Write("a", 32, 2);
    }
    ~AtlasHost() override { SetMessageBoxHook(nullptr); }

    std::filesystem::path PathOf(const std::string& name)
    {
        return m_prefix.MakeFolder() / (name + ".layout");
    }

    // A layout file of one row with that many records, the first as wide as told.
    void Write(const char* name, DWORD columns, short width, WORD quantity = 1)
    {
        k_StyleAtlas atlas;
        atlas.ColumnCount = columns;
        k_QuantityDesc& row = *atlas.GetRow(atlas.AddRow({quantity, 0, 0, 0, 0}, 0));
        while (row.Styles.GetSize() < static_cast<INT_PTR>(columns))
            row.Styles.Add(new k_LineDef);
        if (columns > 0)
            row.GetColumnStyle(0)->LineWidth = width;
        WriteWhole(PathOf(name), BytesOf(atlas));
    }

    // The width of the first cell as a host gets it; -1 for no answer.
    static short Query()
    {
        uint32_t color = 0;
        int16_t width = -1;
        int16_t other = 0;
        uint8_t uses = 0;
        const int found =
            GetStyleAtlas(0, 1, 0, 0, 0, 0, &color, &other, &other, &other, &color, &other, &width, &uses);
        return found == STYLEATLAS_FOUND ? width : -1;
    }

    TempPrefix m_prefix;
    const ScopedVariable m_german{"LC_ALL", "de_DE.UTF-8"};
};

// Opens the dialog, has the user act, closes it by its cross if it is still open, and gives the result.
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

// Clicks a button and names a file in its dialog; the file can vanish as soon as it is chosen. Confirms that
// it is overwritten. Gives the title of that dialog and the name that it came up with.
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
