// A tree with column headings: in its columns, the curve styles of each row as pictures.
#pragma once

#include "CustomTreeChildCtrl.h"
#include "StyleEditor.h"

#include <array>
#include <model/QuantityDesc.h>

// Column 0, the tree's own one, and the file columns.
constexpr int k_MaxTreeColumns = 1 + k_MaxFileColumns;

struct CTVHITTESTINFO {
    POINT pt; // y in the frame's coordinates, x in the tree's
    UINT flags;
    HTREEITEM hItem;
    int iSubItem; // the column
};

// Takes the place of a static control, which then is the frame of four windows: the headings, the tree, a
// horizontal scroll bar, and an empty heading above the tree's vertical one. What the tree and the headings
// notify of goes on to the parent as the frame's own notification.
class k_ColumnTreeCtrl : public CStatic
{
public:
    // The heading's index; -1, and no column, beyond the last one that there is room for. Width in pixels.
    int InsertColumn(int nCol, LPCWSTR lpszHeading, int nFormat, int nWidth);

    // A row behind the parent's last child.
    HTREEITEM InsertItem(CString text, HTREEITEM hParent);

    // In column 0 the k_QuantityDesc of the row, which stays the caller's; in a file column a record, which
    // goes to the row's k_QuantityDesc, if there is one.
    void SetCellData(HTREEITEM hItem, int nCol, void* pData);

    // The record of a file column's cell, nCol from 1; null for a row without data.
    k_LineDef* GetCellStyle(HTREEITEM hItem, int nCol) const;
    k_QuantityDesc* GetRowData(HTREEITEM hItem) const; // null if there is none

    // The row and the column at a point; null, and TVHT_NOWHERE, beside the columns. A pixel on a boundary
    // belongs to the column left of it.
    HTREEITEM HitTest(CTVHITTESTINFO* pInfo) const;

    // Makes the windows, once.
    virtual void Initialize();

    void UpdateColumns();  // reads the widths from the headings
    void UpdateScroller(); // places the windows and sets the scroll bar

    // Whether an edge of the selected cell's column, the left or the right one, is in the window while
    // nothing is scrolled.
    BOOL IsColumnEdgeVisible(bool bLeft);

    // No cell and no column is selected any more.
    void ClearSelection();

    // Sets what a double click opens; until then it opens nothing.
    void SetStyleEditor(k_StyleEditor editor) { m_styleEditor = editor; }

    // Lets the user edit a file column of all rows; or a list of records, as k_StyleEditor says.
    void EditColumn(const NMHEADERW& notification);
    INT_PTR EditStyles(CWnd* pParent, k_LineDefList* pStyles, k_QuantityDesc* pQuantity);

    int m_cellColumn = -1; // of the selected cell, -1 for none
    HTREEITEM m_cellItem = nullptr;
    int m_headerHeight = 0; // pixels
    k_CustomTreeChildCtrl m_Tree;
    CScrollBar m_HorScroll;
    CHeaderCtrl m_Header;
    CHeaderCtrl m_CornerHeader;
    int m_totalWidth = 0; // pixels, of all columns
    int m_xOffset = 0;    // pixels scrolled to the right
    int m_cellMargin = 0; // pixels left of a cell
    int m_minFirstColumnWidth = 100;
    BOOL m_skipNextChanging = FALSE; // the next change of a heading is refused
    std::array<int, k_MaxTreeColumns> m_columnWidths{};
    int m_selectedColumn = -1; // by its heading, -1 for none

protected:
    void PreSubclassWindow() override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CWnd* pScrollBar);
    afx_msg void OnSettingChange(UINT uFlags, LPCTSTR lpszSection);
    afx_msg void OnEnable(BOOL bEnable);

private:
    BOOL OnTreeNotify(NMHDR& notification, LRESULT* pResult);
    BOOL OnHeaderNotify(NMHEADERW& notification, LRESULT* pResult);
    void OnHeaderItemChanging(NMHEADERW& notification, LRESULT* pResult);
    void OnHeaderItemClick(const NMHEADERW& notification);
    LRESULT OnCustomDraw(const NMTVCUSTOMDRAW& draw);

    void PlaceWindows(bool hasVerticalBar);
    int LayOutHeader(); // gives the height of the headings
    bool HasVerticalBar();
    int GetScrolledWidth(); // pixels, of all that can be scrolled
    int GetLineStep() const;

    k_StyleEditor m_styleEditor = nullptr;

    DECLARE_MESSAGE_MAP()
};
