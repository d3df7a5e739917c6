// What the column tree says to screen readers, and to keys that act for the mouse.
#include "ColumnTreeCtrl.h"
#include "StyleWords.h"

CString k_ColumnTreeCtrl::GetHeading(int column) const
{
    constexpr int maxLength = 64;
    TCHAR text[maxLength]{};
    HDITEMW item{};
    item.mask = HDI_TEXT;
    item.pszText = text;
    item.cchTextMax = maxLength;
    ::SendMessageW(m_Header.m_hWnd, HDM_GETITEMW, static_cast<WPARAM>(column),
                   reinterpret_cast<LPARAM>(&item));
    return text;
}

// "temperature, file 2, cross, empty, size 10, Brown; solid, width 1, Black"
CString k_ColumnTreeCtrl::GetCellName(HTREEITEM hItem, int column) const
{
    CString name = m_Tree.GetItemText(hItem);
    if (column == 0)
        return name;
    name += _T(", ") + GetHeading(column);
    if (const k_LineDef* const pStyle = GetCellStyle(hItem, column))
        name += _T(", ") + GetStyleInWords(*pStyle);
    return name;
}

HRESULT k_ColumnTreeCtrl::get_accName(VARIANT varChild, BSTR* pszName)
{
    const int count = m_Header.GetItemCount();
    if (varChild.lVal == CHILDID_SELF || count == 0)
        return S_FALSE;
    const int row = (varChild.lVal - 1) / count;
    const int column = (varChild.lVal - 1) % count;
    const auto item = reinterpret_cast<HTREEITEM>(
        ::SendMessageW(m_Tree.m_hWnd, TVM_MAPACCIDTOHTREEITEM, static_cast<WPARAM>(row), 0));
    *pszName = (row == 0 ? GetHeading(column) : GetCellName(item, column)).AllocSysString();
    return S_OK;
}

HRESULT k_ColumnTreeCtrl::get_accFocus(VARIANT* pvarChild)
{
    const bool isHeading = m_selectedColumn > 0;
    const bool isCell = !isHeading && m_cellColumn >= 0;
    HTREEITEM const item = isCell ? m_cellItem : m_Tree.GetNextItem(nullptr, TVGN_CARET);
    const LRESULT row =
        isHeading ? 0
                  : ::SendMessageW(m_Tree.m_hWnd, TVM_MAPHTREEITEMTOACCID, reinterpret_cast<WPARAM>(item), 0);
    if (!isHeading && row == 0)
        return S_FALSE;
    const int column = isHeading ? m_selectedColumn : isCell ? m_cellColumn : 0;
    *pvarChild = {VT_I4, static_cast<LONG>(row) * m_Header.GetItemCount() + column + 1};
    return S_OK;
}
