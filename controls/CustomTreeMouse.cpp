// Mouse input of the tree: a click selects, a double click edits.
#include "ColumnTreeCtrl.h"
#include "StyleSelection.h"

void k_CustomTreeChildCtrl::SelectRow(HTREEITEM hItem)
{
    Select(hItem, TVGN_CARET);
}

// No row is selected together with a cell or column.
void k_CustomTreeChildCtrl::TakeFocus()
{
    SetActiveWindow();
    SetFocus();
    SelectRow(nullptr);
}

void k_CustomTreeChildCtrl::SelectCell(HTREEITEM hItem, int column)
{
    k_ColumnTreeCtrl* const frame = GetFrame();
    frame->m_selectedColumn = -1;
    frame->m_cellColumn = column;
    frame->m_cellItem = hItem;
    InvalidateRect(nullptr, TRUE);
}

void k_CustomTreeChildCtrl::OnLButtonDown(UINT /*nFlags*/, CPoint point)
{
    if (IsOnTreePart(point.x, point.y) != FALSE) {
        if (HTREEITEM const row = HitTest(point); row != nullptr) {
            k_ColumnTreeCtrl* const frame = GetFrame();
            frame->ClearSelection();
            frame->InvalidateRect(nullptr, TRUE);
            SelectRow(row);
        }
        Default();
        return;
    }
    TakeFocus();
    int column = 0;
    if (HTREEITEM const row = HitTestColumns(point, column); row != nullptr)
        SelectCell(row, column);
    SetFocus();
}

// No hot tracking beside the tree part of a row.
void k_CustomTreeChildCtrl::OnMouseMove(UINT /*nFlags*/, CPoint point)
{
    if (IsOnTreePart(point.x, point.y) != FALSE)
        Default();
}

void k_CustomTreeChildCtrl::OnLButtonDblClk(UINT /*nFlags*/, CPoint point)
{
    if (IsOnTreePart(point.x, point.y) != FALSE)
        EditRow(point);
    else
        EditCell(point);
}

void k_CustomTreeChildCtrl::EditRow(CPoint point)
{
    HTREEITEM const row = HitTest(point);
    if (row == nullptr) {
        Default();
        return;
    }
    SelectRow(row);
    k_QuantityDesc* const pQuantity = GetFrame()->GetRowData(row);
    if (pQuantity == nullptr)
        return;
    if (IsCollapsedGroup(row))
        EditGroup(row, pQuantity);
    else
        RepaintAfter(GetFrame()->EditStyles(GetFrame(), pQuantity->GetStyles(), pQuantity));
}

// A collapsed row is edited together with the two levels below it.
void k_CustomTreeChildCtrl::EditGroup(HTREEITEM hItem, k_QuantityDesc* pQuantity)
{
    k_StyleSelection styles;
    const auto append = [&](HTREEITEM row) {
        if (k_QuantityDesc* const pRow = GetFrame()->GetRowData(row); pRow != nullptr)
            styles.Append(pRow->GetStyles());
    };
    append(hItem);
    for (HTREEITEM child = GetNextItem(hItem, TVGN_CHILD); child != nullptr;
         child = GetNextItem(child, TVGN_NEXT)) {
        append(child);
        for (HTREEITEM grandchild = GetNextItem(child, TVGN_CHILD); grandchild != nullptr;
             grandchild = GetNextItem(grandchild, TVGN_NEXT))
            append(grandchild);
    }
    RepaintAfter(GetFrame()->EditStyles(GetFrame(), &styles, pQuantity));
}

void k_CustomTreeChildCtrl::EditCell(CPoint point)
{
    TakeFocus();
    int column = 0;
    HTREEITEM const row = HitTestColumns(point, column);
    if (row == nullptr || column < 1) {
        SetFocus();
        return;
    }
    SelectCell(row, column);

    const k_ColumnTreeCtrl* const frame = GetFrame();
    k_StyleSelection styles;
    styles.Add(frame->GetCellStyle(row, column));
    if (IsCollapsedGroup(row)) {
        for (HTREEITEM child = GetNextItem(row, TVGN_CHILD); child != nullptr;
             child = GetNextItem(child, TVGN_NEXT))
            styles.Add(frame->GetCellStyle(child, column));
    }
    RepaintAfter(GetFrame()->EditStyles(GetFrame(), &styles, frame->GetRowData(row)));
    SetFocus();
}

void k_CustomTreeChildCtrl::RepaintAfter(INT_PTR dialogResult)
{
    if (dialogResult == IDOK)
        InvalidateRect(nullptr, TRUE);
}
