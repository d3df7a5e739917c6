// The tree of the column tree: rows, and in each row the cells right of it.
#pragma once

#include <afxcmn.h>

class k_ColumnTreeCtrl;
class k_QuantityDesc;

// A child of k_ColumnTreeCtrl, which holds what is selected and paints the rows. The data of a row is the
// k_QuantityDesc that it shows, or null; it isn't the tree's.
class k_CustomTreeChildCtrl : public CTreeCtrl
{
public:
    BOOL DestroyWindow() override;

    void ExpandAll();
    void CollapseAll();

    // The row after this one in a walk of the whole tree, folded rows included; null at the end.
    HTREEITEM GetNextTreeItem(HTREEITEM hItem) const;

    int m_firstColumnWidth = 0; // pixels; the tree part of a row ends there

protected:
    void PreSubclassWindow() override;

    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg LRESULT OnDeleteItem(WPARAM wParam, LPARAM lParam);
    afx_msg void OnToolTipText(UINT nID, NMHDR* pNMHDR, LRESULT* pResult);

private:
    k_ColumnTreeCtrl* GetFrame() const;
    BOOL IsOnTreePart(int x, int y) const;
    bool IsFoldedGroup(HTREEITEM hItem) const;
    HTREEITEM HitTestColumns(CPoint point, int& column) const;
    void TakeFocus();
    void SelectRow(HTREEITEM hItem); // null: no row
    void SelectCell(HTREEITEM hItem, int column);

    void ExpandRows(WPARAM code);
    void EditRow(CPoint point);
    void EditCell(CPoint point);
    void EditBelow(HTREEITEM hItem, k_QuantityDesc* pQuantity);
    void RepaintAfter(INT_PTR dialogResult);

    void StepLeft();
    void StepRight();
    void StepUp();
    void StepDown();
    void FoldCellRow(WPARAM code);

    CString GetToolTipAt(CPoint point) const;

    DECLARE_MESSAGE_MAP()
};
