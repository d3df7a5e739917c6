#include "Control.h"
#include "ScrollBarWindow.h"

BOOL CScrollBar::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, MakeScrollBar, {nullptr, dwStyle, rect, pParentWnd, nID});
}
