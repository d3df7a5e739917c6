#include "Control.h"
#include "ToolTipWindow.h"

#include <QtConvert.h>

BOOL CToolTipCtrl::Create(CWnd* pParentWnd, DWORD dwStyle)
{
    return CreateControl(*this, MakeToolTip, {nullptr, dwStyle, {0, 0, 0, 0}, pParentWnd, 0});
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCTSTR lpszText, LPCRECT lpRectTool, UINT_PTR /*nIDTool*/)
{
    auto* const control = dynamic_cast<ToolTipWindow*>(WindowSide::Of(m_hWnd));
    WindowSide* const window = WindowSide::Of(pWnd != nullptr ? pWnd->m_hWnd : nullptr);
    if (control == nullptr || window == nullptr || lpszText == nullptr || lpRectTool == nullptr)
        return FALSE;
    control->AddTool(*window, gdi::ToQString(lpszText), gdi::ToQRect(gdi::ToBox(*lpRectTool)));
    return TRUE;
}
