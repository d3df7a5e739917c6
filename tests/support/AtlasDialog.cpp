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

} // namespace test
