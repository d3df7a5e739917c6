#include "AtlasDialog.h"

#include <numeric>

namespace test
{

AtlasDialog::AtlasDialog()
{
    m_ColumnTree.SetStyleEditor([](CWnd* parent, k_LineDefList* styles, k_QuantityDesc* quantity) -> INT_PTR {
        EditRequest request{parent, styles, {}, quantity};
        for (INT_PTR i = 0; i < styles->GetSize(); ++i)
            request.Styles.push_back(styles->GetAt(i));
        editRequests.push_back(std::move(request));
        return IDOK;
    });
}

BOOL AtlasDialog::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    Notifications.push_back(*reinterpret_cast<const NMHDR*>(lParam));
    return k_StyleAtlasDialog::OnNotify(wParam, lParam, pResult);
}

void SetTable(const std::vector<BYTE>& levels, DWORD columns)
{
    g_StyleAtlas.Clear();
    g_StyleAtlas.ColumnCount = columns;
    WORD quantity = 0;
    for (const BYTE level : levels)
        g_StyleAtlas.AddRow({++quantity, 0, 0, -1, 0}, level);
}

void ColumnTreeTest::RunInside(const std::function<void()>& body)
{
    QTimer::singleShot(0, [this, &body] {
        Settle();
        body();
        m_dialog.EndDialog(IDCANCEL);
    });
    m_dialog.DoModal();
}

HTREEITEM ColumnTreeTest::Row(int number)
{
    HTREEITEM row = Tree().GetNextItem(nullptr, TVGN_ROOT);
    for (; row != nullptr && number > 0; --number)
        row = Tree().GetNextItem(row, TVGN_NEXTVISIBLE);
    return row;
}

CPoint ColumnTreeTest::Label(int row)
{
    CRect label;
    Tree().GetItemRect(Row(row), &label, TRUE);
    return {label.left + 3, (label.top + label.bottom) / 2};
}

CPoint ColumnTreeTest::Cell(int row, int column)
{
    const int* const widths = Frame().m_columnWidths.data();
    return {std::accumulate(widths, widths + column, widths[column] / 2), Label(row).y};
}

std::string ColumnTreeTest::RowName(HTREEITEM row)
{
    const k_QuantityDesc* const pRow = Frame().GetRowData(row);
    return pRow == nullptr ? "?" : std::to_string(pRow->Quantity - 1);
}

std::string ColumnTreeTest::Selection()
{
    std::string text = "cell " + std::to_string(Frame().m_cellColumn) + " of ";
    text += Frame().m_cellItem == nullptr ? "none" : RowName(Frame().m_cellItem);
    text += ", column " + std::to_string(Frame().m_selectedColumn);
    const HTREEITEM caret = Tree().GetNextItem(nullptr, TVGN_CARET);
    return text + (caret == nullptr ? "" : ", row " + RowName(caret));
}

void ColumnTreeTest::Resize(int width, int height)
{
    Frame().MoveWindow(5, 5, width, height);
    Settle();
}

void ColumnTreeTest::ExpectInView(HTREEITEM row)
{
    CRect label, shown;
    Tree().GetItemRect(row, &label, TRUE);
    Tree().GetClientRect(&shown);
    EXPECT_TRUE(label.top >= 0 && label.bottom <= shown.bottom) << RowName(row) << " at " << label.top;
}

} // namespace test
