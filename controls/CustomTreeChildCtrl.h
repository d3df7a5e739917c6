// The tree of the column tree: the rows, with cells to the right of each label.
#pragma once

#include <afxcmn.h>

class k_ColumnTreeCtrl;
class k_QuantityDesc;

// Child of k_ColumnTreeCtrl, which holds the selection and paints the rows. The data of a row is the
// k_QuantityDesc that it shows, or null; the tree doesn't own it.
class k_CustomTreeChildCtrl : public CTreeCtrl
{
public:
    BOOL DestroyWindow() override;

    void ExpandAll();
    void CollapseAll();

    // The next row in a walk of the whole tree, collapsed rows included; null at the end.
    HTREEITEM GetNextTreeItem(HTREEITEM hItem) const;

    int m_firstColumnWidth = 0; // pixels; the end of the tree part of a row

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
    bool IsCollapsedGroup(HTREEITEM hItem) const;
    HTREEITEM HitTestColumns(CPoint point, int& column) const;
    void TakeFocus();
    void SelectRow(HTREEITEM hItem); // null: no row
    void SelectCell(HTREEITEM hItem, int column);

    void ExpandRows(WPARAM code);
    void EditRow(CPoint point);
    void EditCell(CPoint point);
    void EditGroup(HTREEITEM hItem, k_QuantityDesc* pQuantity);
    void RepaintAfter(INT_PTR dialogResult);

    void StepLeft();
    void StepRight();
    void StepUp();
    void StepDown();
    void ExpandCellRow(WPARAM code);

    CString GetToolTipAt(CPoint point) const;

    DECLARE_MESSAGE_MAP()
};
