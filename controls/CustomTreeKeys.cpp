// Keyboard input of the tree: moves the selected cell or column.
#include "ColumnTreeCtrl.h"

void k_CustomTreeChildCtrl::OnKeyDown(UINT nChar, UINT /*nRepCnt*/, UINT /*nFlags*/)
{
    InvalidateRect(nullptr, TRUE);
    const k_ColumnTreeCtrl* const frame = GetFrame();
    if (frame->m_cellColumn == -1 && frame->m_selectedColumn <= 0) {
        Default();
        return;
    }
    switch (nChar) {
    case VK_LEFT:
        StepLeft();
        break;
    case VK_RIGHT:
        StepRight();
        break;
    case VK_UP:
        StepUp();
        break;
    case VK_DOWN:
        StepDown();
        break;
    case VK_ADD:
        ExpandCellRow(TVE_EXPAND);
        break;
    case VK_SUBTRACT:
        ExpandCellRow(TVE_COLLAPSE);
        break;
    default:
        break;
    }
    InvalidateRect(nullptr, TRUE);
}

// A step left of the first cell deselects it: its row is brought into view, and the view scrolls back to the
// left.
void k_CustomTreeChildCtrl::StepLeft()
{
    k_ColumnTreeCtrl* const frame = GetFrame();
    if (frame->m_selectedColumn > 0) {
        --frame->m_selectedColumn;
        return;
    }
    if (frame->m_cellColumn >= 0) {
        --frame->m_cellColumn;
        if (frame->m_cellColumn == 0) {
            frame->m_cellColumn = -1;
            SelectRow(frame->m_cellItem);
        }
    }
    SelectRow(nullptr);
    UpdateWindow();
    if (frame->m_cellColumn < 0)
        frame->SendMessage(WM_HSCROLL, SB_PAGELEFT, 0);
    if (frame->IsColumnEdgeVisible(true) == FALSE)
        frame->SendMessage(WM_HSCROLL, SB_LINELEFT, 0);
}

void k_CustomTreeChildCtrl::StepRight()
{
    k_ColumnTreeCtrl* const frame = GetFrame();
    const int lastColumn = frame->m_Header.GetItemCount() - 1;
    if (frame->m_selectedColumn > 0) {
        if (frame->m_selectedColumn != lastColumn)
            ++frame->m_selectedColumn;
        return;
    }
    if (frame->m_cellColumn == lastColumn)
        return;
    SelectRow(nullptr);
    ++frame->m_cellColumn;
    UpdateWindow();
    if (frame->IsColumnEdgeVisible(false) == FALSE)
        frame->SendMessage(WM_HSCROLL, SB_LINERIGHT, 0);
}

void k_CustomTreeChildCtrl::StepUp()
{
    k_ColumnTreeCtrl* const frame = GetFrame();
    if (frame->m_cellColumn == -1)
        return;
    HTREEITEM const previous = GetNextItem(frame->m_cellItem, TVGN_PREVIOUSVISIBLE);
    if (previous == nullptr)
        return;
    if (frame->m_cellItem == GetNextItem(nullptr, TVGN_FIRSTVISIBLE))
        Select(previous, TVGN_FIRSTVISIBLE);
    frame->m_cellItem = previous;
    SelectRow(nullptr);
}

void k_CustomTreeChildCtrl::StepDown()
{
    k_ColumnTreeCtrl* const frame = GetFrame();
    HTREEITEM const next = GetNextItem(frame->m_cellItem, TVGN_NEXTVISIBLE);
    if (next == nullptr)
        return;
    EnsureVisible(next);
    UpdateWindow();
    frame->m_cellItem = next;
    SelectRow(nullptr);
}

void k_CustomTreeChildCtrl::ExpandCellRow(WPARAM code)
{
    HTREEITEM const row = GetFrame()->m_cellItem;
    if (ItemHasChildren(row) != FALSE)
        Expand(row, static_cast<UINT>(code));
}
