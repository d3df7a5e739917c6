// The functions for scroll bars.
#include "Window.h"

#include <afxwnd.h>

BOOL GetScrollInfo(HWND handle, int bar, LPSCROLLINFO info)
{
    const Window* const window = Window::Of(handle);
    SCROLLINFO all{};
    if (window == nullptr || info == nullptr || info->cbSize != sizeof *info || !window->ScrollInfo(bar, all))
        return FALSE;
    if ((info->fMask & SIF_RANGE) != 0) {
        info->nMin = all.nMin;
        info->nMax = all.nMax;
    }
    if ((info->fMask & SIF_PAGE) != 0)
        info->nPage = all.nPage;
    if ((info->fMask & SIF_POS) != 0)
        info->nPos = all.nPos;
    return TRUE;
}

int SetScrollInfo(HWND handle, int bar, LPCSCROLLINFO info, BOOL /*redraw*/)
{
    Window* const window = Window::Of(handle);
    const bool isGood = window != nullptr && bar == SB_CTL && info != nullptr && info->cbSize == sizeof *info;
    return isGood ? window->SetScrollInfo(*info) : 0;
}

int GetScrollPos(HWND handle, int bar)
{
    SCROLLINFO info{sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, 0, 0};
    GetScrollInfo(handle, bar, &info);
    return info.nPos;
}

BOOL CWnd::GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask)
{
    lpScrollInfo->cbSize = sizeof *lpScrollInfo;
    lpScrollInfo->fMask = nMask;
    return ::GetScrollInfo(m_hWnd, nBar, lpScrollInfo);
}

BOOL CWnd::SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw)
{
    lpScrollInfo->cbSize = sizeof *lpScrollInfo;
    ::SetScrollInfo(m_hWnd, nBar, lpScrollInfo, bRedraw);
    return TRUE;
}
