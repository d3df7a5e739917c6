// The layout of the colour popup: its size, its position on the screen, and the rectangles of its cells.
#include "ColorPopup.h"
#include "SelectedObject.h"

#include <algorithm>

namespace
{

constexpr int gridColumns = 8;

int WidthOf(const RECT& rect)
{
    return rect.right - rect.left;
}

int HeightOf(const RECT& rect)
{
    return rect.bottom - rect.top;
}

void Widen(RECT& rect, int width)
{
    rect.right = rect.left + std::max(WidthOf(rect), width);
}

} // namespace

// The size of the larger text with its margins; 0 by 0 without texts.
SIZE k_ColorPopup::TextSize()
{
    SIZE largest{};
    if (!HasDefault() && !HasMore())
        return largest;
    CClientDC dc(this);
    const k_SelectedObject selected(dc, m_font);
    for (const CString* text : {&m_defaultText, &m_moreText}) {
        if (text->IsEmpty())
            continue;
        const SIZE size = dc.GetTextExtent(*text);
        largest = {std::max(largest.cx, size.cx), std::max(largest.cy, size.cy)};
    }
    return {largest.cx + 2 * m_margin, largest.cy + 4 * m_margin + 2};
}

void k_ColorPopup::ComputeLayout()
{
    const SIZE text = TextSize();
    m_columns = gridColumns;
    m_rows = (m_colorCount + m_columns - 1) / m_columns;

    GetWindowRect(&m_windowRect);
    m_windowRect.right = m_windowRect.left + m_columns * m_cellSize + 2 * m_margin;
    m_windowRect.bottom = m_windowRect.top + m_rows * m_cellSize + 2 * m_margin;
    int inner = text.cx;
    if (HasDefault()) {
        Widen(m_windowRect, text.cx);
        inner = WidthOf(m_windowRect) - 2 * m_margin;
        m_defaultRect = {m_margin, m_margin, inner + m_margin, 2 * m_margin + text.cy};
        m_windowRect.bottom += HeightOf(m_defaultRect) + 2 * m_margin;
    }
    if (HasMore()) {
        Widen(m_windowRect, inner);
        const int height = HeightOf(m_windowRect);
        m_moreRect = {m_margin, height, WidthOf(m_windowRect) - m_margin, height + m_margin + text.cy};
        m_windowRect.bottom += HeightOf(m_moreRect) + 2 * m_margin;
    }
    KeepOnScreen();
    MoveWindow(&m_windowRect, TRUE);
}

void k_ColorPopup::KeepOnScreen()
{
    const int beyondRight = m_windowRect.right - ::GetSystemMetrics(SM_CXSCREEN);
    if (beyondRight > 0)
        ::OffsetRect(&m_windowRect, -beyondRight, 0);
    if (m_windowRect.left < 0)
        ::OffsetRect(&m_windowRect, -m_windowRect.left, 0);
    if (m_windowRect.bottom > ::GetSystemMetrics(SM_CYSCREEN)) {
        RECT owner;
        m_owner->GetWindowRect(&owner);
        ::OffsetRect(&m_windowRect, 0, -(HeightOf(m_windowRect) + HeightOf(owner)));
    }
}

BOOL k_ColorPopup::CellRect(int cell, LPRECT rect) const
{
    if (cell == CELL_MORE) {
        *rect = m_moreRect;
        return TRUE;
    }
    if (cell == CELL_DEFAULT) {
        *rect = m_defaultRect;
        return TRUE;
    }
    if (cell < 0 || cell >= m_colorCount)
        return FALSE;
    rect->left = ColumnOf(cell) * m_cellSize + m_margin;
    rect->top = RowOf(cell) * m_cellSize + m_margin;
    if (HasDefault())
        rect->top += HeightOf(m_defaultRect) + m_margin;
    rect->right = rect->left + m_cellSize;
    rect->bottom = rect->top + m_cellSize;
    return TRUE;
}
