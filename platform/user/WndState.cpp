// State of a window that its framework object gets and sets: style, place, focus, capture, text, font.
#include "Capture.h"
#include "Window.h"

#include <QApplication>
#include <QtConvert.h>
#include <afxwin.h>
#include <utility>

namespace
{

// Null for a widget that isn't a window of the layer.
CWnd* ObjectOf(const QWidget* widget)
{
    Window* const window = Window::Of(widget);
    return window != nullptr ? CWnd::FromHandle(window->Handle()) : nullptr;
}

} // namespace

DWORD CWnd::GetStyle() const
{
    const Window* const window = Window::Of(m_hWnd);
    return window != nullptr ? window->Style : 0;
}

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd)
{
    Window* const window = Window::Of(m_hWnd);
    if (window == nullptr)
        return FALSE;
    const DWORD before = std::exchange(window->Style, (window->Style & ~dwRemove) | dwAdd);
    if (window->Style == before)
        return FALSE;
    window->OnStyleChanged();
    return TRUE;
}

CWnd* CWnd::GetParent() const
{
    return FromHandle(::GetParent(m_hWnd));
}

int CWnd::GetDlgCtrlID() const
{
    const Window* const window = Window::Of(m_hWnd);
    return window != nullptr ? window->Id : 0;
}

CWnd* CWnd::GetDlgItem(int nID) const
{
    return FromHandle(::GetDlgItem(m_hWnd, nID));
}

void CWnd::ScreenToClient(LPRECT lpRect) const
{
    POINT topLeft{lpRect->left, lpRect->top};
    ::ScreenToClient(m_hWnd, &topLeft);
    ::OffsetRect(lpRect, topLeft.x - lpRect->left, topLeft.y - lpRect->top);
}

void CWnd::MoveWindow(int x, int y, int nWidth, int nHeight, BOOL /*bRepaint*/)
{
    if (Window* const window = Window::Of(m_hWnd))
        window->Place({x, y, nWidth, nHeight});
}

void CWnd::MoveWindow(LPCRECT lpRect, BOOL bRepaint)
{
    MoveWindow(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top,
               bRepaint);
}

BOOL CWnd::EnableWindow(BOOL bEnable)
{
    const BOOL wasDisabled = IsWindowEnabled() == FALSE ? TRUE : FALSE;
    if (Window* const window = Window::Of(m_hWnd))
        window->Widget().setEnabled(bEnable != FALSE);
    return wasDisabled;
}

BOOL CWnd::IsWindowEnabled() const
{
    Window* const window = Window::Of(m_hWnd);
    return window != nullptr && window->Widget().isEnabled() ? TRUE : FALSE;
}

CWnd* CWnd::SetFocus()
{
    CWnd* const before = ObjectOf(QApplication::focusWidget());
    if (Window* const window = Window::Of(m_hWnd))
        window->Widget().setFocus();
    return before;
}

CWnd* CWnd::SetActiveWindow()
{
    CWnd* const before = ObjectOf(QApplication::activeWindow());
    if (Window* const window = Window::Of(m_hWnd))
        window->Widget().window()->activateWindow();
    return before;
}

BOOL CWnd::ShowWindow(int nCmdShow)
{
    Window* const window = Window::Of(m_hWnd);
    if (window == nullptr)
        return FALSE;
    const BOOL wasShown = window->Widget().isHidden() ? FALSE : TRUE;
    window->Widget().setVisible(nCmdShow != SW_HIDE);
    return wasShown;
}

BOOL CWnd::EnableToolTips(BOOL bEnable)
{
    Window* const window = Window::Of(m_hWnd);
    if (window == nullptr)
        return FALSE;
    window->HasToolTips = bEnable != FALSE;
    return TRUE;
}

CWnd* CWnd::SetCapture()
{
    CWnd* const before = GetCapture();
    if (Window* const window = Window::Of(m_hWnd))
        SetCaptureTo(*window);
    return before;
}

CWnd* CWnd::GetCapture()
{
    Window* const window = CaptureWindow();
    return window != nullptr ? FromHandle(window->Handle()) : nullptr;
}

BOOL ReleaseCapture()
{
    if (Window* const window = CaptureWindow())
        ReleaseCaptureOf(*window);
    return TRUE;
}

void CWnd::GetWindowText(CString& rString) const
{
    const Window* const window = Window::Of(m_hWnd);
    rString = window != nullptr ? gdi::ToCString(window->Text()) : CString();
}

void CWnd::SetWindowText(LPCTSTR lpszString)
{
    ::SetWindowTextW(m_hWnd, lpszString);
}

CFont* CWnd::GetFont() const
{
    return CFont::FromHandle(reinterpret_cast<HFONT>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0)));
}

void CWnd::SetFont(CFont* pFont, BOOL bRedraw)
{
    const HFONT font = pFont != nullptr ? static_cast<HFONT>(*pFont) : nullptr;
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font), bRedraw);
}
