// Paints a row of the column tree after the native tree has drawn it.
#include "ColumnTreeCtrl.h"
#include "SelectedObject.h"

#include <algorithm>
#include <cstdlib>
#include <model/QuantityDesc.h>
#include <optional>

namespace
{

constexpr int labelPadding = 4;
constexpr int firstColumnEnd = 4; // pixels at the right end of column 0 without label
constexpr int textInsetX = 2;
constexpr int textInsetY = 1;
constexpr int cellLeftInset = 1; // in addition to the margin
constexpr int cellRightInset = 3;
constexpr int cellInsetY = 1;
constexpr UINT labelFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;

// Selects an underlined copy of the tree's font into a context, until Restore or its own end.
class k_UnderlinedFont
{
public:
    k_UnderlinedFont(CDC& dc, const CWnd& tree, bool isWanted)
    {
        const CFont* const treeFont = isWanted ? tree.GetFont() : nullptr;
        LOGFONTW font{};
        if (treeFont == nullptr || ::GetObjectW(static_cast<HFONT>(*treeFont), sizeof(font), &font) == 0)
            return;
        font.lfUnderline = 1;
        if (m_font.CreateFontIndirect(&font) != FALSE)
            m_selected.emplace(dc, m_font);
    }

    void Restore() { m_selected.reset(); }

private:
    CFont m_font;
    std::optional<k_SelectedObject<CFont>> m_selected;
};

// Paints one row, step by step.
class k_RowPainter
{
public:
    k_RowPainter(const k_ColumnTreeCtrl& frame, const NMTVCUSTOMDRAW& draw, CDC& dc)
        : m_frame(frame), m_draw(draw), m_dc(dc), m_item(reinterpret_cast<HTREEITEM>(draw.nmcd.dwItemSpec)),
          m_columnCount(frame.m_Header.GetItemCount()), m_isEnabled(frame.IsWindowEnabled() != FALSE),
          m_isFullRow((frame.m_Tree.GetStyle() & TVS_FULLROWSELECT) != 0), m_row(draw.nmcd.rc),
          m_pQuantity(frame.GetRowData(m_item))
    {
        m_frame.m_Tree.GetItemRect(m_item, &m_label, TRUE);
    }

    void Paint()
    {
        const COLORREF background = ::GetSysColor(m_isEnabled ? COLOR_WINDOW : COLOR_BTNFACE);
        m_dc.FillSolidRect(&m_label, background);
        PaintGrid();
        const CString text = m_frame.m_Tree.GetItemText(m_item);
        FitLabel(text);
        PaintBand(background);

        const bool isHot = (m_frame.m_Tree.GetStyle() & TVS_TRACKSELECT) != 0 && m_draw.nmcd.uItemState != 0;
        k_UnderlinedFont hotFont(m_dc, m_frame.m_Tree, isHot);
        PaintLabel(text);
        if (!m_isFullRow)
            hotFont.Restore();

        m_dc.SetBkMode(TRANSPARENT);
        if (m_isEnabled && !m_isFullRow)
            m_dc.SetTextColor(::GetSysColor(COLOR_MENUTEXT));
        PaintCells();
    }

private:
    // A line to the right of each column and one below the row. Then m_row is as wide as the columns.
    void PaintGrid()
    {
        int end = 0;
        for (int column = 0; column < m_columnCount; ++column) {
            end += m_frame.m_columnWidths.at(column);
            m_row.right = end;
            m_dc.DrawEdge(&m_row, BDR_SUNKENINNER, BF_RIGHT);
        }
        m_dc.DrawEdge(&m_row, BDR_SUNKENINNER, BF_BOTTOM);
    }

    void FitLabel(const CString& text)
    {
        CRect extent;
        m_dc.DrawText(text, &extent, DT_CALCRECT | DT_NOPREFIX);
        m_label.right =
            std::min<int>(m_label.left + labelPadding + extent.right, m_frame.ColumnEnd(0) - firstColumnEnd);
    }

    // Fills a selected row from its label to the last column.
    void PaintBand(COLORREF background)
    {
        if (m_row.Width() < 0 || m_draw.clrTextBk == background)
            return;
        CRect band = m_row;
        band.left = m_label.left;
        m_dc.FillSolidRect(&band, m_draw.clrTextBk);
        if ((m_draw.nmcd.uItemState & CDIS_FOCUS) != 0)
            m_dc.DrawFocusRect(&band);
    }

    void PaintLabel(const CString& text)
    {
        CRect place = m_label;
        place.InflateRect(-textInsetX, -textInsetY);
        m_dc.SetTextColor(m_draw.clrText);
        m_dc.DrawText(text, &place, labelFormat);
    }

    void PaintCells()
    {
        int end = m_frame.m_columnWidths[0];
        for (int column = 1; column < m_columnCount; ++column) {
            const int left = end + m_frame.m_cellMargin + cellLeftInset;
            end += m_frame.m_columnWidths.at(column);
            PaintCell(column, CRect(left, m_label.top + cellInsetY, end - cellRightInset,
                                    m_label.bottom - cellInsetY));
        }
    }

    void PaintCell(int column, const CRect& cell)
    {
        if (cell.left < 0 || cell.right < 0 || cell.left >= cell.right)
            return;
        const k_LineDef* const pStyle =
            m_pQuantity != nullptr ? m_pQuantity->GetColumnStyle(column - 1) : nullptr;
        if (!IsVisible(cell, pStyle))
            return;
        if (IsSelected(column)) {
            CBrush highlight(::GetSysColor(COLOR_HIGHLIGHT));
            m_dc.FillRect(&cell, &highlight);
        }
        if (pStyle != nullptr) {
            pStyle->DrawLine(&m_dc, cell);
            pStyle->DrawSymbol(&m_dc, cell);
        }
    }

    // Its picture may reach beyond the cell.
    bool IsVisible(CRect cell, const k_LineDef* pStyle) const
    {
        if (pStyle != nullptr) {
            const int reach = 1 + std::max(std::abs(pStyle->SymbolSize), std::abs(pStyle->LineWidth)) / 2;
            cell.InflateRect(reach, reach);
        }
        return m_dc.RectVisible(&cell) != FALSE;
    }

    bool IsSelected(int column) const
    {
        return column == m_frame.m_selectedColumn ||
               (m_item == m_frame.m_cellItem && column == m_frame.m_cellColumn);
    }

    const k_ColumnTreeCtrl& m_frame;
    const NMTVCUSTOMDRAW& m_draw;
    CDC& m_dc;
    HTREEITEM m_item;
    int m_columnCount;
    bool m_isEnabled;
    bool m_isFullRow;
    CRect m_row;
    CRect m_label;
    k_QuantityDesc* m_pQuantity;
};

} // namespace

LRESULT k_ColumnTreeCtrl::OnCustomDraw(const NMTVCUSTOMDRAW& draw)
{
    switch (draw.nmcd.dwDrawStage) {
    case CDDS_PREPAINT:
        return CDRF_NOTIFYITEMDRAW;
    case CDDS_ITEMPREPAINT:
        return CDRF_NOTIFYPOSTPAINT;
    case CDDS_ITEMPOSTPAINT:
        break;
    default:
        return CDRF_DODEFAULT;
    }
    CDC* const dc = CDC::FromHandle(draw.nmcd.hdc);
    if (dc != nullptr && ::IsRectEmpty(&draw.nmcd.rc) == FALSE)
        k_RowPainter(*this, draw, *dc).Paint();
    return CDRF_DODEFAULT;
}
