// The colour popup's cells: where they are, and which follows which.
#include "ColorPopup.h"

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

// ---- Layout

// With the room around it; 0 by 0 without a text.
SIZE k_ColorPopup::TextSize()
{
    SIZE greatest{};
    if (!HasDefault() && !HasMore())
        return greatest;
    CClientDC dc(this);
    CFont* const previous = dc.SelectObject(&m_font);
    for (const CString* text : {&m_defaultText, &m_moreText}) {
        if (text->IsEmpty())
            continue;
        const SIZE size = dc.GetTextExtent(*text);
        greatest = {std::max(greatest.cx, size.cx), std::max(greatest.cy, size.cy)};
    }
    dc.SelectObject(previous);
    return {greatest.cx + 2 * m_margin, greatest.cy + 4 * m_margin + 2};
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

// ---- Rows and columns

// A text cell stands in a row and a column of its own number.
int k_ColorPopup::RowOf(int cell) const
{
    if (cell >= 0 && cell < m_colorCount)
        return cell / m_columns;
    if ((cell == CELL_MORE && HasMore()) || (cell == CELL_DEFAULT && HasDefault()))
        return cell;
    return CELL_NONE;
}

int k_ColorPopup::ColumnOf(int cell) const
{
    return cell >= 0 && cell < m_colorCount ? cell % m_columns : RowOf(cell);
}

int k_ColorPopup::CellAt(int row, int column) const
{
    if ((row == CELL_MORE || column == CELL_MORE) && HasMore())
        return CELL_MORE;
    if ((row == CELL_DEFAULT || column == CELL_DEFAULT) && HasDefault())
        return CELL_DEFAULT;
    const bool inGrid = row >= 0 && row < m_rows && column >= 0 && column < m_columns;
    const int cell = row * m_columns + column;
    return inGrid && cell < m_colorCount ? cell : CELL_NONE;
}

// The cell that answers to the mouse at a point in client coordinates. A text cell does so a margin further
// right and down than it shows; the grid's first row and column reach up and left beyond the window's edge,
// as division goes toward 0.
int k_ColorPopup::CellUnder(CPoint point) const
{
    point.Offset(-m_margin, -m_margin);
    if (HasMore() && ::PtInRect(&m_moreRect, point) != FALSE)
        return CELL_MORE;
    if (HasDefault()) {
        if (::PtInRect(&m_defaultRect, point) != FALSE)
            return CELL_DEFAULT;
        point.y -= HeightOf(m_defaultRect);
    }
    const int cell = CellAt(point.y / m_cellSize, point.x / m_cellSize);
    return cell >= 0 ? cell : CELL_NONE;
}

int k_ColorPopup::CellOf(COLORREF color) const
{
    if (color == CLR_DEFAULT && HasDefault())
        return CELL_DEFAULT;
    for (int cell = 0; cell < m_colorCount; ++cell) {
        if (k_Palette[cell].Color == color)
            return cell;
    }
    return HasMore() ? CELL_MORE : CELL_NONE;
}

// ---- Keys

int k_ColorPopup::KeyTarget(UINT key) const
{
    const int row = RowOf(m_hotCell);
    const int column = ColumnOf(m_hotCell);
    const int lastColumn = m_columns - 1;
    switch (key) {
    case VK_DOWN:
        return Forward(row + 1, column);
    case VK_RIGHT:
        return column == lastColumn ? Forward(row + 1, 0) : Forward(row, column + 1);
    case VK_UP:
        return Back(row - 1, column);
    default:
        return column > 0 ? Back(row, column - 1) : Back(row - 1, lastColumn);
    }
}

// To a place in the grid, or past its end; from a text cell, to the one that follows it.
int k_ColorPopup::Forward(int row, int column) const
{
    if (m_hotCell == CELL_DEFAULT)
        return 0;
    if (m_hotCell == CELL_MORE)
        return HasDefault() ? CELL_DEFAULT : 0;
    const int cell = CellAt(row, column);
    if (cell != CELL_NONE)
        return cell;
    if (HasMore())
        return CELL_MORE;
    return HasDefault() ? CELL_DEFAULT : 0;
}

int k_ColorPopup::Back(int row, int column) const
{
    const int last = m_colorCount - 1;
    if (m_hotCell == CELL_MORE)
        return last;
    if (m_hotCell == CELL_DEFAULT)
        return HasMore() ? CELL_MORE : last;
    if (row >= 0)
        return CellAt(row, column);
    if (HasDefault())
        return CELL_DEFAULT;
    return HasMore() ? CELL_MORE : last;
}
