#include "Control.h"
#include "HeaderWindow.h"

#include <afxcmn.h>

BOOL CHeaderCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, MakeHeader, {nullptr, dwStyle, rect, pParentWnd, nID});
}
