// A tree with column headings. Its columns show the curve styles of each row as pictures.
#pragma once

#include "CustomTreeChildCtrl.h"
#include "StyleEditor.h"

#include <array>
#include <model/QuantityDesc.h>

// Column 0, which is the tree's own, and the file columns.
constexpr int k_MaxTreeColumns = 1 + k_MaxFileColumns;

struct CTVHITTESTINFO {
    POINT pt; // y in the frame's coordinates, x in the tree's
    UINT flags;
    HTREEITEM hItem;
    int iSubItem; // the column
};

// Attached to a static control, which becomes the frame of four windows: the headings, the tree, a horizontal
// scroll bar, and an empty heading above the tree's vertical scroll bar. Notifications of tree and headings
// are passed on to the parent as the frame's own.
class k_ColumnTreeCtrl : public CStatic
{
public:
    // Returns the heading's index, or -1 if there is no room for another column. Width in pixels.
    int InsertColumn(int nCol, LPCWSTR lpszHeading, int nFormat, int nWidth);

    // Adds a row after the parent's last child.
    HTREEITEM InsertItem(CString text, HTREEITEM hParent);

    // In column 0, sets the k_QuantityDesc of the row, which stays the caller's. In a file column, hands a
    // record over to the k_QuantityDesc of the row, if there is one.
    void SetCellData(HTREEITEM hItem, int nCol, void* pData);

    // The record of a cell in a file column (nCol from 1); null for a row without data.
    k_LineDef* GetCellStyle(HTREEITEM hItem, int nCol) const;
    k_QuantityDesc* GetRowData(HTREEITEM hItem) const; // null if there is none

    // Returns the row at a point and sets the column; null and TVHT_NOWHERE beside the columns. A pixel on a
    // boundary belongs to the column on its left.
    HTREEITEM HitTest(CTVHITTESTINFO* pInfo) const;

    // Creates the windows, once.
    virtual void Initialize();

    void UpdateColumns();  // reads the widths from the headings
    void UpdateScroller(); // places the windows and sets the scroll bar

    // Whether the left or right edge of the selected cell's column would be visible if nothing were scrolled.
    BOOL IsColumnEdgeVisible(bool bLeft);

    // Deselects cell and column.
    void ClearSelection();

    // The right end of a column in the unscrolled tree, in pixels; 0 for -1.
    int ColumnEnd(int column) const;

    // Sets the editor that a double click opens. Initially there is none.
    void SetStyleEditor(k_StyleEditor editor) { m_styleEditor = editor; }

    // Opens the editor on the records of a file column in all rows.
    void EditColumn(const NMHEADERW& notification);

    // Opens the editor on a list of records: see k_StyleEditor. Returns -1 if there is no editor.
    INT_PTR EditStyles(CWnd* pParent, k_LineDefList* pStyles, k_QuantityDesc* pQuantity);

    // A cell is named by its row, its heading and its style in words. The focus is on the selected cell or
    // heading, or on the caret row.
    HRESULT get_accName(VARIANT varChild, BSTR* pszName) override;
    HRESULT get_accFocus(VARIANT* pvarChild) override;

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
    BOOL m_skipNextChanging = FALSE; // reject the next change of a heading
    std::array<int, k_MaxTreeColumns> m_columnWidths{};
    int m_selectedColumn = -1; // selected by its heading, -1 for none

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

    CString GetHeading(int column) const;
    CString GetCellName(HTREEITEM hItem, int column) const;

    void PlaceWindows(bool hasVerticalBar);
    void SetHeadingFont(CFont* font);
    int LayOutHeader(); // returns the height of the headings
    CRect GetClient() const;
    bool HasVerticalBar();
    int GetScrolledWidth(); // pixels, of the whole contents
    int GetLineStep() const;

    k_StyleEditor m_styleEditor = nullptr;

    DECLARE_MESSAGE_MAP()
};
