// The framework's device contexts on a window.
#include "WindowSide.h"

#include <afxwin.h>

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(pWnd->m_hWnd)
{
    WindowSide* const window = WindowSide::Of(m_hWnd);
    if (window == nullptr || !Attach(window->BeginPaint()))
        AfxThrowResourceException();
}

CPaintDC::~CPaintDC()
{
    const HDC context = Detach();
    if (WindowSide* const window = WindowSide::Of(m_hWnd))
        window->EndPaint(context);
    else
        ::DeleteDC(context);
}

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(pWnd->m_hWnd)
{
    WindowSide* const window = WindowSide::Of(m_hWnd);
    if (window == nullptr || !Attach(window->GetContext()))
        AfxThrowResourceException();
}

CClientDC::~CClientDC()
{
    const HDC context = Detach();
    if (WindowSide* const window = WindowSide::Of(m_hWnd))
        window->ReleaseContext(context);
    else
        ::DeleteDC(context);
}
