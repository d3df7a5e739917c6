// The columns and the rows of the style atlas dialog.
#include "StyleAtlasDialog.h"

#include <controls/WindowUpdateLock.h>
#include <model/Language.h>

namespace
{

constexpr int treeColumnWidth = 150; // pixels
constexpr int fileColumnWidth = 60;
constexpr int headingFormat = 0;

} // namespace

void k_StyleAtlasDialog::InsertColumns()
{
    m_ColumnTree.InsertColumn(0, _T(" "), headingFormat, treeColumnWidth);
    const int count = m_Atlas.GetBoundedColumnCount();
    for (int column = 1; column <= count; ++column) {
        CString heading;
        heading.Format(_T("%s %d"), g_Language.GetUnStrippedText(_T("file"), k_LanguageSection, true),
                       column);
        m_ColumnTree.InsertColumn(column, heading, headingFormat, fileColumnWidth);
    }
}

// A row of level 0 doesn't reset lastSubQuantity: deeper rows right after it still go below the previous row
// of level 1.
void k_StyleAtlasDialog::FillTree()
{
    const k_WindowUpdateLock lock(m_hWnd);
    m_ColumnTree.m_Tree.SendMessage(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
    HTREEITEM lastGroup = TVI_ROOT;
    HTREEITEM lastSubQuantity = TVI_ROOT;
    const INT_PTR count = m_Atlas.Rows.GetSize();
    for (INT_PTR index = 0; index < count; ++index) {
        const k_QuantityDesc* const pRow = m_Atlas.GetRow(index);
        if (pRow == nullptr)
            continue;
        switch (pRow->Level) {
        case 0:
            lastGroup = InsertRow(index, TVI_ROOT);
            break;
        case 1:
            lastSubQuantity = InsertRow(index, lastGroup);
            break;
        default:
            InsertRow(index, lastSubQuantity);
            break;
        }
    }
    KeepVisible(GetTreeItem(TVGN_ROOT));
    m_ColumnTree.UpdateScroller(); // the tree may have a vertical bar now
}

HTREEITEM k_StyleAtlasDialog::InsertRow(INT_PTR index, HTREEITEM hParent)
{
    HTREEITEM const row = m_ColumnTree.InsertItem(m_Atlas.GetRowLabel(index), hParent);
    m_ColumnTree.SetCellData(row, 0, m_Atlas.GetRow(index));
    TVITEMW item{};
    item.mask = TVIF_STATE;
    item.hItem = row;
    item.state = TVIS_EXPANDED;
    item.stateMask = TVIS_EXPANDED;
    m_ColumnTree.m_Tree.SetItem(&item);
    return row;
}
