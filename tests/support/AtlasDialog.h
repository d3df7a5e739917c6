// The column tree in its dialog, with an editor of styles that only writes down what it is given.
#pragma once

#include "Gui.h"

#include <dialogs/StyleAtlasDialog.h>
#include <model/QuantityDesc.h>

namespace test
{

// What the editor of styles has been asked for.
struct EditRequest {
    CWnd* Parent = nullptr;
    const void* List = nullptr;
    std::vector<const k_LineDef*> Styles;
    const k_QuantityDesc* Quantity = nullptr;
};
inline std::vector<EditRequest> editRequests;

// Keeps the notifications of the column tree, and the requests to its editor of styles.
class AtlasDialog : public k_StyleAtlasDialog
{
public:
    AtlasDialog();

    std::vector<NMHDR> Notifications;

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

// Rows of these levels in the module's table, the quantity of each its number from 1.
void SetTable(const std::vector<BYTE>& levels, DWORD columns = 4);

// Its table has rows 0 and 5 at the top, 1 and 4 below 0, 2 and 3 below 1.
class ColumnTreeTest : public testing::Test
{
protected:
    ColumnTreeTest() { SetTable({0, 1, 2, 2, 1, 0}); }

    // Runs a function while the dialog is open, and closes it.
    void RunInside(const std::function<void()>& body);

    k_ColumnTreeCtrl& Frame() { return m_dialog.m_ColumnTree; }
    k_CustomTreeChildCtrl& Tree() { return Frame().m_Tree; }
    HTREEITEM Row(int number);        // of those that the tree shows, from the top
    CPoint Label(int row);            // a point in it, in the tree
    CPoint Cell(int row, int column); // its middle, in the tree
    // Its number in the table, "?" for a row without data.
    std::string RowName(HTREEITEM row);
    // What clicks and keys move: "cell 1 of 2, column -1, row 3".
    std::string Selection();
    void Resize(int width, int height);
    void Click(CPoint point) { test::Click(Tree(), point); }
    void ExpectInView(HTREEITEM row);
    k_LineDef* Style(int row, int column) { return m_dialog.m_Atlas.GetRow(row)->GetColumnStyle(column); }

    AtlasDialog m_dialog;
};

} // namespace test
