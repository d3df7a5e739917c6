// What screen readers find in the dialogs, and what they can do there.
#include "support/AtlasDialog.h"
#include "support/TempPrefix.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <dialogs/CurveLayoutDlg.h>
#include <model/Palette.h>

namespace
{

using test::editRequests;

QAccessibleInterface* ObjectOf(const CWnd& window)
{
    return QAccessible::queryAccessibleInterface(&test::WidgetOf(window));
}

std::string NameOf(const QAccessibleInterface* object)
{
    return object != nullptr ? object->text(QAccessible::Name).toStdString() : "none";
}

// The names of all that is below the object, in the order of a walk, with their roles. Nothing that is there
// may be without a name, and each child has to be where its parent says.
void Walk(const QAccessibleInterface& object, std::vector<std::string>& names)
{
    for (int i = 0; i < object.childCount(); ++i) {
        QAccessibleInterface* const child = object.child(i);
        ASSERT_TRUE(child != nullptr && child->isValid()) << NameOf(&object) << " has no child " << i;
        EXPECT_EQ(child->parent(), &object) << NameOf(child);
        EXPECT_EQ(object.indexOfChild(child), i) << NameOf(child);
        names.push_back(NameOf(child));
        EXPECT_NE(names.back(), "") << "a nameless child of " << NameOf(&object);
        if (child->role() != QAccessible::ComboBox)
            Walk(*child, names);
    }
}

void Press(QAccessibleInterface* object)
{
    object->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    test::Settle();
}

class Accessibility : public test::ColumnTreeTest
{
protected:
    QAccessibleInterface* TreeTable() { return ObjectOf(Frame()); }
    QAccessibleInterface* At(int row, int column)
    {
        return TreeTable()->tableInterface()->cellAt(row, column);
    }
    const test::ScopedVariable m_language{"LANGUAGE", "en"};
};

TEST_F(Accessibility, TheTreeIsATableOfRowsAndFileColumns)
{
    RunInside([&] {
        ASSERT_EQ(TreeTable()->role(), QAccessible::Table);
        EXPECT_EQ(TreeTable()->tableInterface()->rowCount(), 6);
        EXPECT_EQ(TreeTable()->tableInterface()->columnCount(), 5);
        *Style(2, 1) = {};
        Style(2, 1)->SymbolShape = 4;
        Style(2, 1)->SymbolColor = k_Palette[10].Color;
        Style(2, 1)->LineStyle = PS_DASH;
        Style(2, 1)->LineColor = 0x123456;
        const std::string label = NameOf(At(2, 0));
        EXPECT_EQ(NameOf(At(2, 2)),
                  label + ", file 2, square, empty, size 10, Dark yellow; dashed, width 1, #563412");
        Style(2, 1)->SymbolShape = 0;
        Style(2, 1)->LineStyle = PS_NULL;
        EXPECT_EQ(NameOf(At(2, 2)), label + ", file 2, no symbol; no line");

        std::vector<std::string> names;
        for (int i = 0; i < TreeTable()->childCount(); ++i)
            names.push_back(NameOf(TreeTable()->child(i)));
        EXPECT_EQ(names.size(), 7U * 5);
        EXPECT_EQ(names[3], "file 3");
        EXPECT_EQ(names[5], NameOf(At(0, 0)));
        for (int i = 1; i < TreeTable()->childCount(); ++i) {
            QAccessibleInterface* const child = TreeTable()->child(i);
            EXPECT_EQ(TreeTable()->indexOfChild(child), i);
            const QPoint middle = child->rect().center();
            EXPECT_EQ(TreeTable()->childAt(middle.x(), middle.y()), child) << names[std::size_t(i)];
        }

        Click(Cell(2, 3));
        EXPECT_EQ(TreeTable()->focusChild(), At(2, 3));
        QAccessible::State cell;
        cell.focusable = cell.selectable = cell.selected = cell.focused = true;
        EXPECT_EQ(At(2, 3)->state(), cell);
        EXPECT_TRUE(TreeTable()->state().focusable);
        test::PressKey(Tree(), VK_DOWN);
        EXPECT_EQ(NameOf(ObjectOf(Tree())->focusChild()), NameOf(At(3, 3)));
        Frame().EnableWindow(FALSE);
        cell.selected = cell.focused = false;
        cell.disabled = true;
        EXPECT_EQ(At(2, 3)->state(), cell);
        Frame().EnableWindow(TRUE);
        EXPECT_TRUE(TreeTable()->tableInterface()->selectRow(1) && At(1, 0)->state().selected);
        At(4, 3)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
        test::Settle();
        EXPECT_TRUE(At(4, 3)->state().selected);
        Click(Label(0));
        EXPECT_EQ(TreeTable()->focusChild(), At(0, 0));
        EXPECT_TRUE(At(0, 0)->state().expandable && At(0, 0)->state().expanded);
        QAccessibleInterface* const folded = At(1, 1);
        test::PressKey(Tree(), VK_LEFT);
        EXPECT_TRUE(At(0, 0)->state().collapsed);
        EXPECT_EQ(TreeTable()->tableInterface()->rowCount(), 2);
        EXPECT_TRUE(folded->isValid() && folded->rect().isEmpty() && folded->state().offscreen);

        editRequests.clear();
        Press(At(1, 4));
        Press(TreeTable()->child(2));
        Press(At(0, 0));
        Press(folded); // can't be seen
        ASSERT_EQ(editRequests.size(), 3U);
        EXPECT_EQ(editRequests[0].Styles, std::vector<const k_LineDef*>{Style(5, 3)});
        EXPECT_EQ(editRequests[1].Styles.size(), 6U) << "a heading";
        EXPECT_EQ(editRequests[2].Styles.size(), 5U * 4) << "a folded row";
        m_dialog.m_ColumnTree.m_Tree.SendMessage(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
        EXPECT_TRUE(!folded->isValid() && folded->state().invalid);
        EXPECT_EQ(TreeTable()->childCount(), 5);
    });
}

TEST_F(Accessibility, BringsARowIntoViewThatIsPressed)
{
    test::SetTable(std::vector<BYTE>(60));
    RunInside([&] {
        editRequests.clear();
        Press(At(50, 1));
        ASSERT_EQ(editRequests.size(), 1U);
        EXPECT_EQ(editRequests[0].Styles, std::vector<const k_LineDef*>{Style(50, 0)});
        ExpectInView(Row(50));
    });
}

TEST_F(Accessibility, TheStyleDialogTellsWhatTheEyeSees)
{
    k_LineDefList list;
    for (int i = 0; i < 2; ++i)
        list.Add(new k_LineDef);
    list.GetAt(0)->SymbolColor = k_Palette[10].Color;
    list.GetAt(1)->SymbolColor = k_Palette[10].Color;
    list.GetAt(1)->SymbolSize = 20;
    list.GetAt(1)->LineColor = 1;
    list.GetAt(0)->SymbolShape = list.GetAt(1)->SymbolShape = 4;
    QTimer::singleShot(0, [] {
        QWidget* const shown = QApplication::activeModalWidget();
        auto& dialog = dynamic_cast<k_CurveLayoutDlg&>(*Window::Of(shown)->Attached);
        std::vector<std::string> names;
        Walk(*ObjectOf(dialog), names);
        for (const char* const name :
             {"Shape", "Symbol, Shape, square", "Symbol, Style, empty", "Symbol, Size, various",
              "Symbol colour, Dark yellow", "Line, Style, solid", "Line, Width, 1", "Line colour, various",
              "Use symbol color", "OK"})
            EXPECT_EQ(std::ranges::count(names, name), 1) << name;
        const QAccessibleInterface* const shapes = ObjectOf(dialog.m_SymbolShapeCombo)->child(0);
        EXPECT_EQ(NameOf(shapes->child(8)), "circle");
        EXPECT_EQ(NameOf(shapes->child(6)), "asterisk");
        EXPECT_EQ(NameOf(ObjectOf(dialog.m_LineStyleCombo)->child(0)->child(2)), "dotted");

        QAccessibleActionInterface& picker = *ObjectOf(dialog.m_LineColorPicker)->actionInterface();
        EXPECT_EQ(picker.actionNames().value(0), QAccessibleActionInterface::pressAction());
        picker.doAction(QAccessibleActionInterface::setFocusAction());
        EXPECT_EQ(shown->focusWidget(), &test::WidgetOf(dialog.m_LineColorPicker));
        Press(ObjectOf(dialog.m_LineColorPicker));
        QTRY_VERIFY(CWnd::GetCapture() != nullptr);
        QAccessibleInterface* const popup = ObjectOf(*CWnd::GetCapture());
        names.clear();
        Walk(*popup, names);
        EXPECT_EQ(names.size(), 41U);
        EXPECT_EQ(names[0] + names[39] + names[40], "BlackWhiteMore colors");
        test::PressKey(*CWnd::GetCapture(), VK_LEFT); // the cell for more colours
        test::PressKey(*CWnd::GetCapture(), VK_LEFT);
        EXPECT_EQ(NameOf(popup->focusChild()), "White");
        const QAccessible::State state = popup->focusChild()->state();
        EXPECT_TRUE(state.focusable && state.selectable && state.selected);
        Press(popup->child(8));
        EXPECT_EQ(NameOf(ObjectOf(dialog.m_LineColorPicker)), "Line colour, Dark red");
        EXPECT_EQ(CWnd::GetCapture(), nullptr);
        shown->close();
    });
    EditStyles(nullptr, &list, nullptr);
}

} // namespace
