#include "CustomTreeChildCtrl.h"

#include "ColumnTreeCtrl.h"
#include "SelectedObject.h"
#include "WindowUpdateLock.h"

BEGIN_MESSAGE_MAP(k_CustomTreeChildCtrl, CTreeCtrl)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_MOUSEMOVE()
ON_WM_TIMER()
ON_WM_KEYDOWN()
ON_WM_SETFOCUS()
ON_MESSAGE(TVM_DELETEITEM, k_CustomTreeChildCtrl::OnDeleteItem)
ON_NOTIFY_RANGE(TTN_NEEDTEXTW, 0, 0xFFFF, k_CustomTreeChildCtrl::OnToolTipText)
ON_NOTIFY_RANGE(TTN_NEEDTEXTA, 0, 0xFFFF, k_CustomTreeChildCtrl::OnToolTipText)
END_MESSAGE_MAP()

void k_CustomTreeChildCtrl::PreSubclassWindow()
{
    CTreeCtrl::PreSubclassWindow();
    EnableToolTips(TRUE);
}

BOOL k_CustomTreeChildCtrl::DestroyWindow()
{
    return CTreeCtrl::DestroyWindow();
}

k_ColumnTreeCtrl* k_CustomTreeChildCtrl::GetFrame() const
{
    return static_cast<k_ColumnTreeCtrl*>(GetParent());
}

// ---- Rows

HTREEITEM k_CustomTreeChildCtrl::GetNextTreeItem(HTREEITEM hItem) const
{
    if (ItemHasChildren(hItem) != FALSE)
        return GetNextItem(hItem, TVGN_CHILD);
    for (; hItem != nullptr; hItem = GetNextItem(hItem, TVGN_PARENT)) {
        if (HTREEITEM const next = GetNextItem(hItem, TVGN_NEXT); next != nullptr)
            return next;
    }
    return nullptr;
}

void k_CustomTreeChildCtrl::ExpandAll()
{
    ExpandRows(TVE_EXPAND);
}

void k_CustomTreeChildCtrl::CollapseAll()
{
    ExpandRows(TVE_COLLAPSE);
}

void k_CustomTreeChildCtrl::ExpandRows(WPARAM code)
{
    const k_WindowUpdateLock lock(GetFrame()->m_hWnd); // the frame repaints after each row
    for (HTREEITEM row = GetNextItem(nullptr, TVGN_ROOT); row != nullptr; row = GetNextTreeItem(row)) {
        if (ItemHasChildren(row) != FALSE)
            Expand(row, static_cast<UINT>(code));
    }
}

bool k_CustomTreeChildCtrl::IsCollapsedGroup(HTREEITEM hItem) const
{
    return ItemHasChildren(hItem) != FALSE && GetItemState(hItem, TVIS_EXPANDED) == 0;
}

// No deleted row may remain selected.
LRESULT k_CustomTreeChildCtrl::OnDeleteItem(WPARAM /*wParam*/, LPARAM /*lParam*/)
{
    GetFrame()->ClearSelection();
    return Default();
}

// ---- Points

// Indentation and the space to the right of the label don't count: a click there belongs to a column.
BOOL k_CustomTreeChildCtrl::IsOnTreePart(int x, int y) const
{
    const CPoint point(x, y);
    UINT flags = 0;
    HTREEITEM const row = HitTest(point, &flags);
    CRect label;
    GetItemRect(row, &label, TRUE);
    CRect client;
    GetClientRect(&client);
    if ((flags & (TVHT_ONITEMICON | TVHT_ONITEMBUTTON | TVHT_ONITEMSTATEICON)) != 0)
        return TRUE;
    if ((GetStyle() & TVS_FULLROWSELECT) != 0) {
        label.right = client.right;
        return ::PtInRect(&label, point);
    }
    if ((flags & TVHT_ONITEMLABEL) == 0)
        return FALSE;
    label.right = m_firstColumnWidth;
    return ::PtInRect(&label, point);
}

HTREEITEM k_CustomTreeChildCtrl::HitTestColumns(CPoint point, int& column) const
{
    const k_ColumnTreeCtrl* const frame = GetFrame();
    CTVHITTESTINFO info{};
    info.pt = {point.x, point.y + frame->m_headerHeight};
    HTREEITEM const row = frame->HitTest(&info);
    column = info.iSubItem;
    return row;
}

// ---- Painting

BOOL k_CustomTreeChildCtrl::OnEraseBkgnd(CDC* /*pDC*/)
{
    return TRUE;
}

void k_CustomTreeChildCtrl::OnPaint()
{
    CRect client;
    GetClientRect(&client);
    CPaintDC dc(this);
    CDC memory;
    memory.CreateCompatibleDC(&dc);
    CBitmap bitmap;
    if (bitmap.CreateCompatibleBitmap(&dc, client.Width(), client.Height()) == FALSE)
        return;
    const k_SelectedObject selected(memory, bitmap);
    DefWindowProc(WM_PAINT, reinterpret_cast<WPARAM>(memory.GetSafeHdc()), 0);
    dc.BitBlt(0, 0, client.Width(), client.Height(), &memory, 0, 0, SRCCOPY);
}

// ---- Focus and timers

// The native selection must not come back while a cell or column is selected.
void k_CustomTreeChildCtrl::OnSetFocus(CWnd* pOldWnd)
{
    CTreeCtrl::OnSetFocus(pOldWnd);
    const k_ColumnTreeCtrl* const frame = GetFrame();
    if (frame != nullptr && (frame->m_selectedColumn >= 0 || frame->m_cellColumn != -1))
        SelectRow(nullptr);
}

void k_CustomTreeChildCtrl::OnTimer(UINT_PTR /*nIDEvent*/) {}

// ---- Tooltips

CString k_CustomTreeChildCtrl::GetToolTipAt(CPoint point) const
{
    HTREEITEM const row = HitTest(point);
    if (row == nullptr)
        return {};
    const auto* const pQuantity = reinterpret_cast<const k_QuantityDesc*>(GetItemData(row));
    return pQuantity != nullptr ? pQuantity->GetTooltipLabel() : GetItemText(row);
}

void k_CustomTreeChildCtrl::OnToolTipText(UINT /*nID*/, NMHDR* pNMHDR, LRESULT* pResult)
{
    CPoint point(GetCurrentMessage()->pt);
    ::ScreenToClient(m_hWnd, &point);
    const CString text = GetToolTipAt(point);
    if (static_cast<int>(pNMHDR->code) == TTN_NEEDTEXTA) {
        auto* const info = reinterpret_cast<NMTTDISPINFOA*>(pNMHDR);
        ::WideCharToMultiByte(CP_THREAD_ACP, 0, text, -1, info->szText, tooltipTextSize, nullptr, nullptr);
        info->szText[tooltipTextSize - 1] = 0;
    } else {
        auto* const info = reinterpret_cast<NMTTDISPINFOW*>(pNMHDR);
        ::lstrcpynW(info->szText, text, tooltipTextSize);
    }
    *pResult = 0;
}
