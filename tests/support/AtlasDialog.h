// The column tree in its dialog, with an editor of styles that only writes down what it is given.
#pragma once

#include "Gui.h"

#include <dialogs/StyleAtlasDialog.h>
#include <model/QuantityDesc.h>
#include <numeric>

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
    AtlasDialog()
    {
        m_ColumnTree.SetStyleEditor([](CWnd* parent, k_LineDefList* styles, k_QuantityDesc* row) -> INT_PTR {
            EditRequest request{parent, styles, {}, row};
            for (INT_PTR i = 0; i < styles->GetSize(); ++i)
                request.Styles.push_back(styles->GetAt(i));
            editRequests.push_back(std::move(request));
            return IDOK;
        });
    }

    std::vector<NMHDR> Notifications;

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override
    {
        Notifications.push_back(*reinterpret_cast<const NMHDR*>(lParam));
        return k_StyleAtlasDialog::OnNotify(wParam, lParam, pResult);
    }
};

// Rows of these levels in the module's table, the quantity of each its number from 1.
inline void SetTable(const std::vector<BYTE>& levels, DWORD columns = 4)
{
    g_StyleAtlas.Clear();
    g_StyleAtlas.ColumnCount = columns;
    WORD quantity = 0;
    for (const BYTE level : levels)
        g_StyleAtlas.AddRow({++quantity, 0, 0, -1, 0}, level);
}

// Its table has rows 0 and 5 at the top, 1 and 4 below 0, 2 and 3 below 1.
class ColumnTreeTest : public testing::Test
{
protected:
    ColumnTreeTest() { SetTable({0, 1, 2, 2, 1, 0}); }

    // Runs a function while the dialog is open, and closes it.
    void RunInside(const std::function<void()>& body)
    {
        QTimer::singleShot(0, [this, &body] {
            Settle();
            body();
            m_dialog.EndDialog(IDCANCEL);
        });
        EXPECT_NE(m_dialog.DoModal(), -1) << "the dialog needs a display";
    }

    k_ColumnTreeCtrl& Frame() { return m_dialog.m_ColumnTree; }
    k_CustomTreeChildCtrl& Tree() { return Frame().m_Tree; }
    // One of those that the tree shows, from the top.
    HTREEITEM Row(int number)
    {
        HTREEITEM row = Tree().GetNextItem(nullptr, TVGN_ROOT);
        for (; row != nullptr && number > 0; --number)
            row = Tree().GetNextItem(row, TVGN_NEXTVISIBLE);
        return row;
    }
    // A point in it, in the tree.
    CPoint Label(int row)
    {
        CRect label;
        Tree().GetItemRect(Row(row), &label, TRUE);
        return {label.left + 3, (label.top + label.bottom) / 2};
    }
    // Its middle, in the tree.
    CPoint Cell(int row, int column)
    {
        const int* const widths = Frame().m_columnWidths.data();
        return {std::accumulate(widths, widths + column, widths[column] / 2), Label(row).y};
    }
    // Its number in the table, "?" for a row without data.
    std::string RowName(HTREEITEM row)
    {
        const k_QuantityDesc* const pRow = Frame().GetRowData(row);
        return pRow == nullptr ? "?" : std::to_string(pRow->Quantity - 1);
    }
    // What clicks and keys move: "cell 1 of 2, column -1, row 3".
    std::string Selection()
    {
        std::string text = "cell " + std::to_string(Frame().m_cellColumn) + " of ";
        text += Frame().m_cellItem == nullptr ? "none" : RowName(Frame().m_cellItem);
        text += ", column " + std::to_string(Frame().m_selectedColumn);
        const HTREEITEM caret = Tree().GetNextItem(nullptr, TVGN_CARET);
        return text + (caret == nullptr ? "" : ", row " + RowName(caret));
    }
    void Resize(int width, int height)
    {
        Frame().MoveWindow(5, 5, width, height);
        Settle();
    }
    void Click(CPoint point) { test::Click(Tree(), point); }
    void ExpectInView(HTREEITEM row)
    {
        CRect label, shown;
        Tree().GetItemRect(row, &label, TRUE);
        Tree().GetClientRect(&shown);
        EXPECT_TRUE(label.top >= 0 && label.bottom <= shown.bottom) << RowName(row) << " at " << label.top;
    }
    k_LineDef* Style(int row, int column) { return m_dialog.m_Atlas.GetRow(row)->GetColumnStyle(column); }

    AtlasDialog m_dialog;
};

} // namespace test
