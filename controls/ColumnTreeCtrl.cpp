#include "ColumnTreeCtrl.h"

#include "StyleSelection.h"

namespace
{

constexpr UINT headerId = 1;
constexpr UINT treeId = 2;
constexpr UINT scrollBarId = 3;
constexpr UINT cornerHeaderId = 4;

constexpr DWORD treeStyle = WS_CHILD | WS_VISIBLE | TVS_INFOTIP;
constexpr DWORD headerStyle = WS_CHILD | WS_VISIBLE | HDS_BUTTONS | HDS_FULLDRAG;
constexpr DWORD cornerHeaderStyle = WS_CHILD;
constexpr DWORD scrollBarStyle = WS_CHILD | SBS_BOTTOMALIGN;

constexpr int marginOfOlderControls = 6;
constexpr int margin = 9;
constexpr DWORD versionOfMargin = 6;

// Whether the common controls have a version with the wider cell margin.
bool HasWideMargin()
{
    const HMODULE module = ::LoadLibraryW(_T("comctl32.dll"));
    if (module == nullptr)
        return false;
    DLLVERSIONINFO version{sizeof(DLLVERSIONINFO), 0, 0, 0, 0};
    const auto getVersion = reinterpret_cast<DLLGETVERSIONPROC>(::GetProcAddress(module, "DllGetVersion"));
    const bool isKnown = getVersion != nullptr && getVersion(&version) >= 0;
    ::FreeLibrary(module);
    return isKnown && version.dwMajorVersion >= versionOfMargin;
}

} // namespace

BEGIN_MESSAGE_MAP(k_ColumnTreeCtrl, CStatic)
ON_WM_SIZE()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_HSCROLL()
ON_WM_SETTINGCHANGE()
ON_WM_ENABLE()
END_MESSAGE_MAP()

// ---- Construction

void k_ColumnTreeCtrl::PreSubclassWindow()
{
    EnableToolTips(TRUE);
    Initialize();
}

void k_ColumnTreeCtrl::Initialize()
{
    if (m_Tree.m_hWnd != nullptr)
        return;
    const CRect client = GetClient();
    m_Tree.Create(treeStyle, CRect(), this, treeId);
    m_Header.Create(headerStyle, client, this, headerId);
    m_CornerHeader.Create(cornerHeaderStyle, client, this, cornerHeaderId);
    m_HorScroll.Create(scrollBarStyle, client, this, scrollBarId);

    SetHeadingFont(m_Tree.GetFont());

    const bool isWide = HasWideMargin();
    m_headerHeight = LayOutHeader();
    m_xOffset = 0;
    m_cellMargin = isWide ? margin : marginOfOlderControls;
    UpdateColumns();
}

void k_ColumnTreeCtrl::SetHeadingFont(CFont* font)
{
    m_Header.SetFont(font, TRUE);
    m_CornerHeader.SetFont(font, TRUE);
}

int k_ColumnTreeCtrl::LayOutHeader()
{
    CRect client = GetClient();
    WINDOWPOS position{};
    HDLAYOUT layout{client, &position};
    m_Header.SendMessage(HDM_LAYOUT, 0, reinterpret_cast<LPARAM>(&layout));
    return position.cy;
}

CRect k_ColumnTreeCtrl::GetClient() const
{
    CRect client;
    GetClientRect(&client);
    return client;
}

// ---- Rows

HTREEITEM k_ColumnTreeCtrl::InsertItem(CString text, HTREEITEM hParent)
{
    TVINSERTSTRUCTW row{hParent, TVI_LAST, {}};
    row.item.mask = TVIF_TEXT;
    row.item.pszText = text.GetBuffer();
    return m_Tree.InsertItem(&row);
}

void k_ColumnTreeCtrl::SetCellData(HTREEITEM hItem, int nCol, void* pData)
{
    if (nCol == 0) {
        TVITEMW item{};
        item.mask = TVIF_PARAM;
        item.hItem = hItem;
        item.lParam = reinterpret_cast<LPARAM>(pData);
        m_Tree.SetItem(&item);
    } else if (k_QuantityDesc* const pQuantity = GetRowData(hItem); nCol > 0 && pQuantity != nullptr) {
        pQuantity->SetColumnStyle(nCol - 1, static_cast<k_LineDef*>(pData));
    }
}

k_QuantityDesc* k_ColumnTreeCtrl::GetRowData(HTREEITEM hItem) const
{
    return reinterpret_cast<k_QuantityDesc*>(m_Tree.GetItemData(hItem));
}

k_LineDef* k_ColumnTreeCtrl::GetCellStyle(HTREEITEM hItem, int nCol) const
{
    k_QuantityDesc* const pQuantity = GetRowData(hItem);
    return pQuantity != nullptr ? pQuantity->GetColumnStyle(nCol - 1) : nullptr;
}

// ---- Selection

void k_ColumnTreeCtrl::ClearSelection()
{
    m_selectedColumn = -1;
    m_cellColumn = -1;
    m_cellItem = nullptr;
}

HTREEITEM k_ColumnTreeCtrl::HitTest(CTVHITTESTINFO* pInfo) const
{
    pInfo->flags = 0;
    pInfo->hItem = m_Tree.HitTest(CPoint(pInfo->pt.x, pInfo->pt.y - m_headerHeight), &pInfo->flags);
    pInfo->iSubItem = 0;
    if ((pInfo->flags & (TVHT_ONITEMLABEL | TVHT_ONITEMRIGHT)) == 0)
        return pInfo->hItem;

    const int count = m_Header.GetItemCount();
    for (int column = 0; column < count; ++column) {
        if (ColumnEnd(column - 1) <= pInfo->pt.x && pInfo->pt.x <= ColumnEnd(column)) {
            pInfo->iSubItem = column;
            pInfo->flags = TVHT_ONITEMLABEL;
            return pInfo->hItem;
        }
    }
    pInfo->hItem = nullptr;
    pInfo->flags = TVHT_NOWHERE;
    return nullptr;
}

INT_PTR k_ColumnTreeCtrl::EditStyles(CWnd* pParent, k_LineDefList* pStyles, k_QuantityDesc* pQuantity)
{
    constexpr INT_PTR notShown = -1;
    return m_styleEditor != nullptr ? m_styleEditor(pParent, pStyles, pQuantity) : notShown;
}

void k_ColumnTreeCtrl::EditColumn(const NMHEADERW& notification)
{
    m_selectedColumn = notification.iItem;
    if (m_selectedColumn < 1)
        return;
    m_cellColumn = -1;
    k_StyleSelection styles;
    for (HTREEITEM row = m_Tree.GetNextItem(nullptr, TVGN_ROOT); row != nullptr;
         row = m_Tree.GetNextTreeItem(row))
        styles.Add(GetCellStyle(row, m_selectedColumn));
    EditStyles(GetParent(), &styles, nullptr);
    m_Tree.InvalidateRect(nullptr, TRUE);
}

// ---- Notifications

BOOL k_ColumnTreeCtrl::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    auto& notification = *reinterpret_cast<NMHDR*>(lParam);
    if (notification.idFrom == treeId && OnTreeNotify(notification, pResult) != FALSE)
        return TRUE;
    if (notification.idFrom == headerId &&
        OnHeaderNotify(reinterpret_cast<NMHEADERW&>(notification), pResult) != FALSE)
        return TRUE;

    CWnd* const parent = GetParent();
    if (parent == nullptr)
        return FALSE;
    notification.hwndFrom = m_hWnd;
    notification.idFrom = static_cast<UINT_PTR>(::GetWindowLongW(m_hWnd, GWL_ID));
    return static_cast<BOOL>(parent->SendMessage(WM_NOTIFY, wParam, lParam));
}

BOOL k_ColumnTreeCtrl::OnTreeNotify(NMHDR& notification, LRESULT* pResult)
{
    switch (static_cast<int>(notification.code)) {
    case NM_CUSTOMDRAW:
        *pResult = OnCustomDraw(reinterpret_cast<const NMTVCUSTOMDRAW&>(notification));
        return TRUE;
    case TVN_ITEMEXPANDEDW:
        UpdateScroller();
        return FALSE;
    default:
        return FALSE;
    }
}

BOOL k_ColumnTreeCtrl::OnHeaderNotify(NMHEADERW& notification, LRESULT* pResult)
{
    switch (static_cast<int>(notification.hdr.code)) {
    case HDN_ITEMCHANGINGW:
        OnHeaderItemChanging(notification, pResult);
        return TRUE;
    case HDN_ITEMCHANGEDW:
        UpdateColumns();
        m_Tree.InvalidateRect(nullptr, TRUE);
        return TRUE;
    case HDN_ITEMCLICKW:
        OnHeaderItemClick(notification);
        return TRUE;
    case HDN_ITEMDBLCLICKW:
        EditColumn(notification);
        return TRUE;
    default:
        return FALSE;
    }
}

void k_ColumnTreeCtrl::OnHeaderItemClick(const NMHEADERW& notification)
{
    UpdateColumns();
    m_Tree.Select(nullptr, TVGN_CARET);
    m_selectedColumn = notification.iItem;
    m_cellColumn = -1;
    m_Tree.InvalidateRect(nullptr, TRUE);
}

// ---- Messages

// The child windows cover the frame, except the corner between the scroll bars.
void k_ColumnTreeCtrl::OnPaint()
{
    CPaintDC dc(this);
    if (!HasVerticalBar())
        return;
    const CRect client = GetClient();
    const CRect corner(client.right - ::GetSystemMetrics(SM_CXVSCROLL),
                       client.bottom - ::GetSystemMetrics(SM_CYHSCROLL), client.right, client.bottom);
    CBrush brush(::GetSysColor(COLOR_BTNFACE));
    dc.FillRect(&corner, &brush);
}

BOOL k_ColumnTreeCtrl::OnEraseBkgnd(CDC* /*pDC*/)
{
    return FALSE;
}

void k_ColumnTreeCtrl::OnEnable(BOOL bEnable)
{
    m_Header.EnableWindow(bEnable);
    m_CornerHeader.EnableWindow(bEnable);
    m_Tree.EnableWindow(bEnable);
    m_HorScroll.EnableWindow(bEnable);
}

void k_ColumnTreeCtrl::OnSettingChange(UINT /*uFlags*/, LPCTSTR /*lpszSection*/)
{
    for (CWnd* const part : std::initializer_list<CWnd*>{&m_Tree, &m_HorScroll, &m_Header, &m_CornerHeader})
        part->SendMessage(WM_SETTINGCHANGE, 0, 0);

    SetHeadingFont(CFont::FromHandle(static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT))));
    m_headerHeight = LayOutHeader();
    UpdateScroller();
}
