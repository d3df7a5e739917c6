// The cells of the colour popup by rows and columns: which cell is at a point, and which follows on a key.
#include "ColorPopup.h"

// ---- Rows and columns

// Row and column of a text cell are its own number.
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

// The cell under the mouse at a point in client coordinates. The hit area of a text cell is shifted right and
// down by a margin; the first row and column of the grid reach beyond the window's edge, as division rounds
// toward 0.
int k_ColorPopup::CellUnder(CPoint point) const
{
    point.Offset(-m_margin, -m_margin);
    if (HasMore() && ::PtInRect(&m_moreRect, point) != FALSE)
        return CELL_MORE;
    if (HasDefault()) {
        if (::PtInRect(&m_defaultRect, point) != FALSE)
            return CELL_DEFAULT;
        point.y -= m_defaultRect.bottom - m_defaultRect.top;
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

// The cell at this row and column; past the end of the grid, or from a text cell, the one that follows.
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
