#include "ColorPicker.h"

#include "ColorMessages.h"
#include "ColorPopup.h"
#include "SelectedObject.h"
#include "StyleWords.h"

#include <algorithm>
#include <model/Language.h>

namespace
{

constexpr int minArrowSize = 5; // edges
constexpr LRESULT handled = 1;

// The width and height of the arrow.
int ArrowSize()
{
    const int width = std::max(::GetSystemMetrics(SM_CXHTHUMB), minArrowSize * ::GetSystemMetrics(SM_CXEDGE));
    const int height =
        std::max(::GetSystemMetrics(SM_CYVTHUMB), minArrowSize * ::GetSystemMetrics(SM_CYEDGE));
    return std::max(width, height);
}

} // namespace

BEGIN_MESSAGE_MAP(k_ColorPicker, CButton)
ON_CONTROL_REFLECT(BN_CLICKED, k_ColorPicker::OnClicked)
ON_WM_CREATE()
ON_NOTIFY_RANGE(TTN_NEEDTEXTW, 0, 0xFFFF, k_ColorPicker::OnToolTipText)
ON_REGISTERED_MESSAGE(g_msgSelChange, k_ColorPicker::OnSelChange)
ON_REGISTERED_MESSAGE(g_msgSelEndChange, k_ColorPicker::OnSelEndChange)
ON_REGISTERED_MESSAGE(g_msgSelEndOK, k_ColorPicker::OnSelEndOK)
END_MESSAGE_MAP()

k_ColorPicker::k_ColorPicker()
    : m_moreText(g_Language.GetUnStrippedText(_T("More colors"), k_LanguageSection, true))
{
}

void k_ColorPicker::SetColor(COLORREF color)
{
    m_color = color;
    if (::IsWindow(m_hWnd) != FALSE)
        RedrawWindow();
}

// ---- The colour in words

CString k_ColorPicker::GetValueText() const
{
    return m_mixed != FALSE ? GetMixedText() : GetColorName(m_color);
}

HRESULT k_ColorPicker::get_accName(VARIANT varChild, BSTR* pszName)
{
    if (varChild.lVal != CHILDID_SELF)
        return S_FALSE;
    *pszName = (m_name.IsEmpty() ? GetValueText() : m_name + _T(", ") + GetValueText()).AllocSysString();
    return S_OK;
}

void k_ColorPicker::OnToolTipText(UINT /*nID*/, NMHDR* pNMHDR, LRESULT* pResult)
{
    ::lstrcpynW(reinterpret_cast<NMTTDISPINFOW*>(pNMHDR)->szText, GetValueText(), tooltipTextSize);
    *pResult = 0;
}

// ---- Size

void k_ColorPicker::PreSubclassWindow()
{
    ModifyStyle(0, BS_OWNERDRAW);
    CButton::PreSubclassWindow();
    EnableToolTips(TRUE);
    FitSize();
}

int k_ColorPicker::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    constexpr int failed = -1;
    if (CButton::OnCreate(lpCreateStruct) == failed)
        return failed;
    FitSize();
    return 0;
}

void k_ColorPicker::FitSize()
{
    const int size = ArrowSize();
    const int edgeX = ::GetSystemMetrics(SM_CXEDGE);
    const int edgeY = ::GetSystemMetrics(SM_CYEDGE);

    CRect place;
    GetWindowRect(&place);
    if (const CWnd* const parent = GetParent(); parent != nullptr)
        parent->ScreenToClient(&place);
    MoveWindow(place.left, place.top, std::max(place.Width(), 2 * (size + edgeX)), size + 2 * edgeY, TRUE);

    CRect button;
    GetWindowRect(&button);
    ScreenToClient(&button);
    m_arrowRect = {button.right - size - edgeX, button.top + edgeY, button.right - edgeX,
                   button.bottom - edgeY};
}

// ---- Painting

void k_ColorPicker::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    CDC* const dc = CDC::FromHandle(lpDrawItemStruct->hDC);
    CRect rect(lpDrawItemStruct->rcItem);
    const UINT state = lpDrawItemStruct->itemState | (m_open != FALSE ? ODS_SELECTED : 0);

    PaintArrow(dc, state);
    dc->DrawEdge(&rect, EDGE_SUNKEN, BF_RECT);
    rect.InflateRect(-::GetSystemMetrics(SM_CXEDGE), -::GetSystemMetrics(SM_CYEDGE));
    rect.right -= m_arrowRect.right - m_arrowRect.left;
    PaintSwatch(dc, rect, state);
    if ((state & ODS_FOCUS) != 0) {
        rect.InflateRect(-1, -1);
        dc->DrawFocusRect(&rect);
    }
}

void k_ColorPicker::PaintArrow(CDC* dc, UINT state)
{
    UINT arrow = DFCS_SCROLLDOWN;
    if ((state & ODS_SELECTED) != 0)
        arrow |= DFCS_PUSHED;
    if ((state & ODS_DISABLED) != 0)
        arrow |= DFCS_INACTIVE;
    dc->DrawFrameControl(&m_arrowRect, DFC_SCROLL, arrow);
}

void k_ColorPicker::PaintSwatch(CDC* dc, CRect rect, UINT state) const
{
    const bool noColor = (state & ODS_DISABLED) != 0 || m_color == CLR_DEFAULT || m_mixed != FALSE;
    CBrush brush(noColor ? ::GetSysColor(COLOR_BTNFACE) : m_color);
    const k_SelectedObject selected(*dc, brush);
    dc->SelectStockObject(NULL_PEN);
    dc->Rectangle(&rect);
}

// ---- The popup

void k_ColorPicker::OnClicked()
{
    m_open = TRUE;
    CRect button;
    GetWindowRect(&button);
    const auto* const popup =
        new k_ColorPopup(CPoint(button.left, button.bottom), m_color, this, m_defaultText, m_moreText);
    if (popup->GetSafeHwnd() == nullptr)
        delete popup; // it has no window to go with
    NotifyParent(g_msgDropdown, m_color);
}

LRESULT k_ColorPicker::OnSelChange(WPARAM wParam, LPARAM /*lParam*/)
{
    NotifyParent(g_msgSelChange, static_cast<COLORREF>(wParam));
    m_mixed = FALSE;
    return handled;
}

LRESULT k_ColorPicker::OnSelEndChange(WPARAM wParam, LPARAM /*lParam*/)
{
    const auto color = static_cast<COLORREF>(wParam);
    m_open = FALSE;
    SetColor(color);
    NotifyParent(g_msgCloseUp, color);
    NotifyParent(g_msgSelEndChange, color);
    m_mixed = FALSE;
    return handled;
}

LRESULT k_ColorPicker::OnSelEndOK(WPARAM wParam, LPARAM /*lParam*/)
{
    const auto color = static_cast<COLORREF>(wParam);
    m_open = FALSE;
    SetColor(color);
    NotifyParent(g_msgCloseUp, color);
    NotifyParent(g_msgSelEndOK, color);
    // The parent may have set another colour in one of these messages.
    if (m_color != color)
        NotifyParent(g_msgSelChange, color);
    return handled;
}

void k_ColorPicker::NotifyParent(UINT message, COLORREF color)
{
    if (CWnd* const parent = GetParent(); parent != nullptr)
        parent->SendMessage(message, color, GetDlgCtrlID());
}
