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

class ColumnTreeTest : public testing::Test
{
protected:
    // Runs a function while the dialog is open, and closes it.
    void RunInside(const std::function<void()>& body);

    k_ColumnTreeCtrl& Frame() { return m_dialog.m_ColumnTree; }
    k_CustomTreeChildCtrl& Tree() { return Frame().m_Tree; }
    HTREEITEM Row(int number);        // of those that the tree shows, from the top
    CPoint Label(int row);            // a point in it, in the tree
    CPoint Cell(int row, int column); // its middle, in the tree
    k_LineDef* Style(int row, int column) { return m_dialog.m_Atlas.GetRow(row)->GetColumnStyle(column); }

    AtlasDialog m_dialog;
};

} // namespace test
