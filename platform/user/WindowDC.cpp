// The framework's device contexts on a window.
#include "Window.h"

#include <afxwin.h>

CPaintDC::CPaintDC(CWnd* pWnd)
{
    Window* const window = Window::Of(pWnd->m_hWnd);
    if (window == nullptr || !Attach(window->Surface().BeginPaint()))
        AfxThrowResourceException();
}

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(pWnd->m_hWnd)
{
    Window* const window = Window::Of(m_hWnd);
    if (window == nullptr || !Attach(window->Surface().GetContext()))
        AfxThrowResourceException();
}

CClientDC::~CClientDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}
