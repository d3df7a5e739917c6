// The drop-down in which a colour is chosen: a grid of the named colours; below it, a cell that opens the
// system's colour dialog; above it, a cell for the automatic colour. Each of the two cells exists only if it
// has a text.
#pragma once

#include <afxwin.h>
#include <algorithm>
#include <model/Palette.h>

// A cell is the index of a colour in k_Palette, or one of these.
constexpr int CELL_NONE = -1;
constexpr int CELL_MORE = -2;    // opens the system's colour dialog
constexpr int CELL_DEFAULT = -3; // the automatic colour, CLR_DEFAULT

// While it is open it captures the mouse, and reports every step to its owner with the messages of
// ColorMessages.h.
class k_ColorPopup : public CWnd
{
public:
    // Shows the popup with its top left corner at topLeft, in screen coordinates. If it doesn't fit the
    // screen, it is moved to the left, or above the owner's window. The texts are those of the default cell
    // and of the cell for more colours; null or an empty text omits the cell.
    //
    // Create it with new and drop the pointer: the object deletes itself with its window. If the window can't
    // be created, the object stays without one and sends nothing. The owner must not be null, must outlive
    // the window and must not destroy it.
    k_ColorPopup(CPoint topLeft, COLORREF color, CWnd* owner, LPCTSTR defaultText, LPCTSTR moreText);
    ~k_ColorPopup() override;

    BOOL PreTranslateMessage(MSG* pMsg) override;

    // The parts are the cells: the colours, the cell for more colours and the default cell, if they exist.
    HRESULT get_accChildCount(LONG* pcountChildren) override;
    HRESULT get_accName(VARIANT varChild, BSTR* pszName) override;
    HRESULT get_accFocus(VARIANT* pvarChild) override;
    HRESULT accLocation(LONG* pxLeft, LONG* pyTop, LONG* pcxWidth, LONG* pcyHeight,
                        VARIANT varChild) override;

protected:
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnPaint();
    afx_msg void OnClose();
    afx_msg void OnNcDestroy();
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnActivateApp(BOOL bActive, DWORD dwThreadID);
    afx_msg BOOL OnQueryNewPalette();
    afx_msg void OnPaletteChanged(CWnd* pFocusWnd);

private:
    // Creation.
    void Setup();
    BOOL CreateAt(CPoint topLeft);
    void AddToolTips();

    // Geometry of the cells.
    bool HasDefault() const { return !m_defaultText.IsEmpty(); }
    bool HasMore() const { return !m_moreText.IsEmpty(); }
    SIZE TextSize();
    void ComputeLayout();
    void KeepOnScreen();
    BOOL CellRect(int cell, LPRECT rect) const; // FALSE: no such cell
    int RowOf(int cell) const;
    int ColumnOf(int cell) const;
    int CellAt(int row, int column) const;
    int CellUnder(CPoint point) const;
    int CellOf(COLORREF color) const;
    int CellOfPart(LONG part) const; // CELL_NONE: no such part
    CString CellText(int cell) const;

    // Keyboard navigation, starting from the hot cell.
    int KeyTarget(UINT key) const;
    int Forward(int row, int column) const;
    int Back(int row, int column) const;

    void MoveHotCell(int cell);
    void Finish(UINT message);

    // Painting. PaintCell ignores cells that don't exist; the others require theirs.
    void PaintCell(CDC* dc, int cell);
    void PaintMoreCell(CDC* dc);
    void PaintDefaultCell(CDC* dc);
    void PaintColorCell(CDC* dc, int cell, const CRect& rect);
    void PaintSwatch(CDC* dc, COLORREF color, const CRect& rect) const;
    void PaintText(CDC* dc, const CString& text, CRect rect);
    COLORREF MarkedFill(int cell, int lighterColor) const;
    void PaintMarkedEdge(CDC* dc, int cell, CRect rect) const;

    int m_colorCount = k_PaletteSize;
    int m_columns = 0;
    int m_rows = 0;
    int m_cellSize = std::max(18, 2 * ::GetSystemMetrics(SM_CXEDGE) + 7); // a swatch of 5 pixels at least
    int m_margin = ::GetSystemMetrics(SM_CXEDGE);                         // the unit of all distances
    int m_hotCell = CELL_NONE;                                            // selected by mouse or keyboard
    int m_chosenCell = CELL_NONE;                                         // cell of the initial colour
    CString m_defaultText;
    CString m_moreText;
    RECT m_moreRect{};
    RECT m_defaultRect{};
    RECT m_windowRect{}; // in screen coordinates
    CFont m_font;
    CPalette m_palette;
    COLORREF m_initialColor = 0;
    COLORREF m_color = 0; // sent with the closing message
    CToolTipCtrl m_toolTip;
    CWnd* m_owner = nullptr;
    BOOL m_inColorDialog = FALSE;
    BOOL m_ownsItself = FALSE; // once it is created

    DECLARE_MESSAGE_MAP()
};
