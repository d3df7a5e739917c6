#include "AtlasDialog.h"

#include <QTimer>
#include <controls/StyleEditing.h>
#include <model/QuantityDesc.h>

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

void AtlasDialog::RunInside(const std::function<void()>& body)
{
    QTimer::singleShot(0, [this, &body] {
        Settle();
        body();
        EndDialog(IDCANCEL);
    });
    DoModal();
}

BOOL AtlasDialog::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
    Notifications.push_back({header.hwndFrom, header.idFrom, static_cast<int>(header.code)});
    return k_StyleAtlasDialog::OnNotify(wParam, lParam, pResult);
}

HTREEITEM AtlasDialog::Row(int number) const
{
    HTREEITEM row = m_ColumnTree.m_Tree.GetNextItem(nullptr, TVGN_ROOT);
    for (; row != nullptr && number > 0; --number)
        row = m_ColumnTree.m_Tree.GetNextItem(row, TVGN_NEXTVISIBLE);
    return row;
}

CPoint AtlasDialog::LabelAt(HTREEITEM row, int x) const
{
    CRect label;
    m_ColumnTree.m_Tree.GetItemRect(row, &label, TRUE);
    return {label.left + x, (label.top + label.bottom) / 2};
}

CPoint AtlasDialog::CellAt(HTREEITEM row, int column) const
{
    int x = m_ColumnTree.m_columnWidths.at(column) / 2;
    for (int i = 0; i < column; ++i)
        x += m_ColumnTree.m_columnWidths.at(i);
    return {x, LabelAt(row).y};
}

void SetTable(std::initializer_list<BYTE> levels, DWORD columns)
{
    g_StyleAtlas.Clear();
    g_StyleAtlas.ColumnCount = columns;
    WORD quantity = 0;
    for (const BYTE level : levels)
        g_StyleAtlas.AddRow({++quantity, 0, 0, -1, 0}, level);
}

} // namespace test
