#include "AtlasDialog.h"

#include <controls/StyleEditing.h>
#include <numeric>

k_StyleAtlas g_StyleAtlas;

INT_PTR EditStyles(CWnd* pParent, k_LineDefList* pStyles, k_QuantityDesc* pQuantity)
{
    test::EditRequest request{pParent, pStyles, {}, pQuantity};
    for (INT_PTR i = 0; i < pStyles->GetSize(); ++i)
        request.Styles.push_back(pStyles->GetAt(i));
    test::editRequests.push_back(std::move(request));
    return IDOK;
}

namespace test
{

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
