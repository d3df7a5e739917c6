// The painting of the colour popup.
#include "ColorPopup.h"
#include "SelectedObject.h"

namespace
{

// Added to a COLORREF: requests the nearest colour of the palette.
constexpr COLORREF paletteRelative = 0x02000000;

} // namespace

void k_ColorPopup::OnPaint()
{
    CPaintDC dc(this);
    PaintCell(&dc, CELL_DEFAULT);
    for (int cell = 0; cell < m_colorCount; ++cell)
        PaintCell(&dc, cell);
    PaintCell(&dc, CELL_MORE);
    CRect frame;
    GetClientRect(&frame);
    dc.DrawEdge(&frame, EDGE_RAISED, BF_RECT);
}

void k_ColorPopup::PaintCell(CDC* dc, int cell)
{
    CRect rect;
    if (cell == CELL_MORE) {
        if (HasMore())
            PaintMoreCell(dc);
    } else if (cell == CELL_DEFAULT) {
        if (HasDefault())
            PaintDefaultCell(dc);
    } else if (CellRect(cell, &rect) != FALSE) {
        PaintColorCell(dc, cell, rect);
    }
}

void k_ColorPopup::PaintMoreCell(CDC* dc)
{
    CRect rect(m_moreRect);
    rect.top += 2 * m_margin;
    dc->FillSolidRect(&rect, ::GetSysColor(COLOR_BTNFACE));

    const int lineLeft = m_moreRect.left + 2 * m_margin;
    const int lineWidth = m_moreRect.right - m_moreRect.left - 4 * m_margin;
    dc->FillSolidRect(lineLeft, m_moreRect.top, lineWidth, 1, ::GetSysColor(COLOR_BTNSHADOW));
    dc->FillSolidRect(lineLeft, m_moreRect.top + 1, lineWidth, 1, ::GetSysColor(COLOR_BTNHIGHLIGHT));

    rect.InflateRect(-1, -1);
    dc->FillSolidRect(&rect, MarkedFill(CELL_MORE, COLOR_3DLIGHT));
    PaintMarkedEdge(dc, CELL_MORE, rect);
    PaintText(dc, m_moreText, rect);
}

void k_ColorPopup::PaintDefaultCell(CDC* dc)
{
    CRect rect(m_defaultRect);
    dc->FillSolidRect(&rect, ::GetSysColor(COLOR_BTNFACE));
    rect.InflateRect(-1, -1);
    dc->FillSolidRect(&rect, MarkedFill(CELL_DEFAULT, COLOR_3DLIGHT));

    CRect frame(rect);
    frame.InflateRect(-2 * m_margin, -2 * m_margin);
    CPen pen(PS_SOLID, 1, ::GetSysColor(COLOR_BTNSHADOW));
    const k_SelectedObject selected(*dc, pen);
    dc->SelectStockObject(NULL_BRUSH);
    dc->Rectangle(&frame);

    PaintMarkedEdge(dc, CELL_DEFAULT, rect);
    PaintText(dc, m_defaultText, rect);
}

void k_ColorPopup::PaintColorCell(CDC* dc, int cell, const CRect& rect)
{
    CPalette* previous = nullptr;
    if ((dc->GetDeviceCaps(RASTERCAPS) & RC_PALETTE) != 0) {
        previous = dc->SelectPalette(&m_palette, FALSE);
        dc->RealizePalette();
    }
    dc->FillSolidRect(&rect, MarkedFill(cell, COLOR_BTNHIGHLIGHT));
    PaintMarkedEdge(dc, cell, rect);
    PaintSwatch(dc, k_Palette[cell].Color, rect);
    if (previous != nullptr)
        dc->SelectPalette(previous, FALSE);
}

void k_ColorPopup::PaintSwatch(CDC* dc, COLORREF color, const CRect& rect) const
{
    CBrush brush(paletteRelative + color);
    CPen pen(PS_SOLID, 1, ::GetSysColor(COLOR_BTNSHADOW));
    const k_SelectedObject selectedBrush(*dc, brush);
    const k_SelectedObject selectedPen(*dc, pen);
    CRect swatch(rect);
    swatch.InflateRect(-(m_margin + 1), -(m_margin + 1));
    dc->Rectangle(&swatch);
}

void k_ColorPopup::PaintText(CDC* dc, const CString& text, CRect rect)
{
    const k_SelectedObject selected(*dc, m_font);
    dc->SetBkMode(TRANSPARENT);
    dc->DrawText(text, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

COLORREF k_ColorPopup::MarkedFill(int cell, int lighterColor) const
{
    const bool lighter = cell == m_chosenCell && cell != m_hotCell;
    return ::GetSysColor(lighter ? lighterColor : COLOR_BTNFACE);
}

void k_ColorPopup::PaintMarkedEdge(CDC* dc, int cell, CRect rect) const
{
    if (cell == m_hotCell)
        dc->DrawEdge(&rect, BDR_RAISEDINNER, BF_RECT);
    else if (cell == m_chosenCell)
        dc->DrawEdge(&rect, BDR_SUNKENOUTER, BF_RECT);
}
