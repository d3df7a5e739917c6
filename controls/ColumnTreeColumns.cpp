// The columns of the column tree: their widths, and how they scroll.
#include "ColumnTreeCtrl.h"

#include <algorithm>

namespace
{

constexpr int cornerOverhang = 5;
constexpr int lineStepWithoutCell = 60; // the width of the dialog's file columns
constexpr LRESULT rejected = 1;

} // namespace

int k_ColumnTreeCtrl::InsertColumn(int nCol, LPCWSTR lpszHeading, int nFormat, int nWidth)
{
    constexpr int noColumn = -1;
    if (m_Header.GetItemCount() >= k_MaxTreeColumns)
        return noColumn;

    CString heading = lpszHeading;
    HDITEMW item{};
    item.mask = HDI_WIDTH | HDI_TEXT | HDI_FORMAT;
    item.cxy = nWidth;
    item.pszText = heading.GetBuffer();
    item.fmt = nFormat;
    const LRESULT index =
        m_Header.SendMessage(HDM_INSERTITEMW, static_cast<WPARAM>(nCol), reinterpret_cast<LPARAM>(&item));
    if (m_Header.GetItemCount() > 0) {
        CString blank;
        item.cxy = ::GetSystemMetrics(SM_CXVSCROLL) + cornerOverhang;
        item.pszText = blank.GetBuffer();
        m_CornerHeader.SendMessage(HDM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    UpdateColumns();
    return static_cast<int>(index);
}

void k_ColumnTreeCtrl::UpdateColumns()
{
    m_totalWidth = 0;
    const int count = m_Header.GetItemCount();
    for (int column = 0; column < count; ++column) {
        HDITEMW item{};
        item.mask = HDI_WIDTH;
        if (m_Header.SendMessage(HDM_GETITEMW, static_cast<WPARAM>(column),
                                 reinterpret_cast<LPARAM>(&item)) == FALSE)
            continue;
        m_columnWidths.at(column) = item.cxy;
        m_totalWidth += item.cxy;
        if (column == 0)
            m_Tree.m_firstColumnWidth = item.cxy;
    }
    m_skipNextChanging = TRUE;
    UpdateScroller();
}

// UpdateColumns arms m_skipNextChanging, so every other HDN_ITEMCHANGING is rejected.
void k_ColumnTreeCtrl::OnHeaderItemChanging(NMHEADERW& notification, LRESULT* pResult)
{
    if (m_skipNextChanging != FALSE) {
        m_skipNextChanging = FALSE;
        *pResult = rejected;
        return;
    }
    *pResult = 0;
    if (notification.iItem == 0 && notification.pitem->cxy < m_minFirstColumnWidth) {
        notification.pitem->cxy = m_minFirstColumnWidth + 1;
        *pResult = rejected;
    }
}

// ---- Scrolling

bool k_ColumnTreeCtrl::HasVerticalBar()
{
    SCROLLINFO info{sizeof(SCROLLINFO), 0, 0, 0, 0, 0, 0};
    return m_Tree.GetScrollInfo(SB_VERT, &info, SIF_ALL) != FALSE && info.nMin != info.nMax;
}

int k_ColumnTreeCtrl::GetScrolledWidth()
{
    return m_totalWidth + (HasVerticalBar() ? ::GetSystemMetrics(SM_CXVSCROLL) : 0);
}

// Placing the tree can show or hide its vertical bar; then the windows are placed again.
void k_ColumnTreeCtrl::UpdateScroller()
{
    if (m_Tree.m_hWnd == nullptr)
        return;
    const bool hadVerticalBar = HasVerticalBar();
    PlaceWindows(hadVerticalBar);
    if (HasVerticalBar() != hadVerticalBar)
        PlaceWindows(!hadVerticalBar);
    RedrawWindow(nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

// Scrolls by moving the headings and the tree to the left and widening them by as much. The tree's own scroll
// bar thus stays in place.
void k_ColumnTreeCtrl::PlaceWindows(bool hasVerticalBar)
{
    const CRect client = GetClient();
    const int width = client.Width();
    const int height = client.Height();
    const int barWidth = ::GetSystemMetrics(SM_CXVSCROLL);
    const int barHeight = ::GetSystemMetrics(SM_CYHSCROLL);
    const int verticalBar = hasVerticalBar ? barWidth : 0;
    const int total = m_totalWidth + verticalBar;

    m_xOffset = std::max(std::min(m_xOffset, total - width), 0);
    SCROLLINFO info{
        sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE | SIF_POS, 0, total, static_cast<UINT>(width), m_xOffset, 0};
    m_HorScroll.SetScrollInfo(SB_CTL, &info, TRUE);

    const int position = width < total ? ::GetScrollPos(m_HorScroll.m_hWnd, SB_CTL) : 0;
    const int wide = width + position;
    const bool hasHorizontalBar = width < total && height >= m_headerHeight + barHeight;
    m_HorScroll.ShowWindow(hasHorizontalBar ? SW_SHOW : SW_HIDE);

    m_Header.MoveWindow(-position, 0, wide - verticalBar, m_headerHeight, TRUE);
    m_CornerHeader.MoveWindow(width - barWidth, 0, barWidth, m_headerHeight, TRUE);
    m_Tree.MoveWindow(-position, m_headerHeight, wide,
                      height - (hasHorizontalBar ? barHeight : 0) - m_headerHeight, TRUE);
    m_HorScroll.MoveWindow(0, height - barHeight, width - verticalBar, barHeight, TRUE);
    m_CornerHeader.ShowWindow(hasVerticalBar ? SW_SHOW : SW_HIDE);
}

void k_ColumnTreeCtrl::OnSize(UINT /*nType*/, int /*cx*/, int /*cy*/)
{
    UpdateScroller();
}

// One line is the width of the selected cell's column.
int k_ColumnTreeCtrl::GetLineStep() const
{
    return m_cellColumn < 0 ? lineStepWithoutCell : m_columnWidths.at(m_cellColumn);
}

void k_ColumnTreeCtrl::OnHScroll(UINT nSBCode, UINT nPos, CWnd* pScrollBar)
{
    const int width = GetClient().Width();
    const int total = GetScrolledWidth();
    int position = m_xOffset;
    switch (nSBCode) {
    case SB_LINELEFT:
        position -= GetLineStep();
        break;
    case SB_LINERIGHT:
        position += GetLineStep();
        break;
    case SB_PAGELEFT:
        position -= width;
        break;
    case SB_PAGERIGHT:
        position += width;
        break;
    case SB_THUMBTRACK:
        position = static_cast<int>(nPos);
        break;
    case SB_LEFT:
        position = 0;
        break;
    case SB_RIGHT:
        position = total - width;
        break;
    default:
        break;
    }
    position = std::min(std::max(position, 0), total - width);
    if (position == m_xOffset)
        return;
    m_xOffset = position;
    CStatic::OnHScroll(nSBCode, nPos, pScrollBar);
    UpdateScroller();
}

int k_ColumnTreeCtrl::ColumnEnd(int column) const
{
    int end = 0;
    for (int each = 0; each <= column; ++each)
        end += m_columnWidths.at(each);
    return end;
}

BOOL k_ColumnTreeCtrl::IsColumnEdgeVisible(bool bLeft)
{
    const int x = m_Tree.m_firstColumnWidth + ColumnEnd(m_cellColumn - (bLeft ? 2 : 1));
    const HDC context = ::GetWindowDC(m_hWnd);
    const BOOL isVisible = ::PtVisible(context, x, 1);
    ::ReleaseDC(m_hWnd, context);
    return isVisible;
}
