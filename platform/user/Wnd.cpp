#include "Application.h"
#include "Capture.h"
#include "ForeignWindow.h"
#include "WindowSide.h"

#include <QApplication>
#include <QtConvert.h>
#include <afxwin.h>
#include <map>
#include <memory>

namespace
{

thread_local MSG currentMessage{}; // that is being handled

// Puts a message in the place of the one that is being handled, for as long as it lives.
class MessageInHand
{
public:
    explicit MessageInHand(const MSG& message) : m_before(std::exchange(currentMessage, message)) {}
    MessageInHand(const MessageInHand&) = delete;
    MessageInHand& operator=(const MessageInHand&) = delete;
    ~MessageInHand() { currentMessage = m_before; }

private:
    MSG m_before;
};

// The objects that the framework keeps for windows which nobody attached one to.
std::map<HWND, std::unique_ptr<CWnd>>& KeptObjects()
{
    static auto* const kept = new std::map<HWND, std::unique_ptr<CWnd>>;
    return *kept;
}

// Null for a widget that isn't a window of the layer's.
CWnd* ObjectOf(const QWidget* widget)
{
    WindowSide* const window = WindowSide::Of(widget);
    return window != nullptr ? CWnd::FromHandle(window->Handle()) : nullptr;
}

} // namespace

LRESULT WindowSide::Send(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_isGone)
        return 0;
    if (Attached == nullptr)
        return Default(message, wParam, lParam);
    const QPoint position = MessagePosition();
    const MessageInHand inHand({Handle(), message, wParam, lParam, 0, {position.x(), position.y()}});
    return Attached->WindowProc(message, wParam, lParam);
}

CWnd::~CWnd()
{
    if (m_hWnd != nullptr)
        CWnd::DestroyWindow();
    if (WindowSide* const window = WindowSide::Of(m_hWnd))
        window->Attached = nullptr;
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    WindowSide* const window = WindowSide::Of(hWnd);
    if (window == nullptr || window->Attached != nullptr)
        return FALSE;
    m_hWnd = hWnd;
    window->Attached = this;
    PreSubclassWindow();
    return TRUE;
}

HWND CWnd::Detach()
{
    if (WindowSide* const window = WindowSide::Of(m_hWnd))
        window->Attached = nullptr;
    return std::exchange(m_hWnd, nullptr);
}

CWnd* CWnd::FromHandlePermanent(HWND hWnd)
{
    WindowSide* const window = WindowSide::Of(hWnd);
    return window != nullptr ? window->Attached : nullptr;
}

CWnd* CWnd::FromHandle(HWND hWnd)
{
    WindowSide* const window = WindowSide::Of(hWnd);
    if (window == nullptr)
        return ForeignObject(hWnd);
    if (window->Attached != nullptr)
        return window->Attached;
    std::erase_if(KeptObjects(), [](const auto& kept) { return WindowSide::Of(kept.first) == nullptr; });
    std::unique_ptr<CWnd>& kept = KeptObjects()[hWnd];
    if (!kept) {
        kept = std::make_unique<CWnd>();
        kept->m_hWnd = hWnd;
    }
    return kept.get();
}

BOOL CWnd::DestroyWindow()
{
    WindowSide* const window = WindowSide::Of(m_hWnd);
    if (window == nullptr || (window->Attached != nullptr && window->Attached != this)) {
        m_hWnd = nullptr;
        return FALSE;
    }
    if (window->Attached == this)
        window->Destroy(); // this object may be gone afterwards
    return TRUE;
}

DWORD CWnd::GetStyle() const
{
    const WindowSide* const window = WindowSide::Of(m_hWnd);
    return window != nullptr ? window->Style : 0;
}

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd)
{
    WindowSide* const window = WindowSide::Of(m_hWnd);
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
    const WindowSide* const window = WindowSide::Of(m_hWnd);
    return window != nullptr ? window->Id : 0;
}

CWnd* CWnd::GetDlgItem(int nID) const
{
    return FromHandle(::GetDlgItem(m_hWnd, nID));
}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate)
{
    CDataExchange exchange{this, bSaveAndValidate};
    DoDataExchange(&exchange);
    return TRUE;
}

void CWnd::DoDataExchange(CDataExchange* /*pDX*/) {}

void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl)
{
    if (rControl.m_hWnd != nullptr)
        return;
    if (!rControl.SubclassWindow(::GetDlgItem(pDX->m_pDlgWnd->m_hWnd, nIDC)))
        AfxThrowInvalidArgException();
}

void CWnd::ScreenToClient(LPRECT lpRect) const
{
    POINT topLeft{lpRect->left, lpRect->top};
    ::ScreenToClient(m_hWnd, &topLeft);
    ::OffsetRect(lpRect, topLeft.x - lpRect->left, topLeft.y - lpRect->top);
}

void CWnd::MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint)
{
    if (WindowSide* const window = WindowSide::Of(m_hWnd)) {
        window->Place({x, y, nWidth, nHeight});
        if (bRepaint != FALSE)
            window->Invalidate(window->Client().rect(), true);
    }
}

void CWnd::MoveWindow(LPCRECT lpRect, BOOL bRepaint)
{
    MoveWindow(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top,
               bRepaint);
}

BOOL CWnd::EnableWindow(BOOL bEnable)
{
    const BOOL wasDisabled = IsWindowEnabled() == FALSE ? TRUE : FALSE;
    if (WindowSide* const window = WindowSide::Of(m_hWnd))
        window->Widget().setEnabled(bEnable != FALSE);
    return wasDisabled;
}

BOOL CWnd::IsWindowEnabled() const
{
    WindowSide* const window = WindowSide::Of(m_hWnd);
    return window != nullptr && window->Widget().isEnabled() ? TRUE : FALSE;
}

CWnd* CWnd::SetFocus()
{
    CWnd* const before = ObjectOf(QApplication::focusWidget());
    if (WindowSide* const window = WindowSide::Of(m_hWnd))
        window->Widget().setFocus();
    return before;
}

CWnd* CWnd::SetActiveWindow()
{
    CWnd* const before = ObjectOf(QApplication::activeWindow());
    if (WindowSide* const window = WindowSide::Of(m_hWnd))
        window->Widget().window()->activateWindow();
    return before;
}

BOOL CWnd::ShowWindow(int nCmdShow)
{
    WindowSide* const window = WindowSide::Of(m_hWnd);
    if (window == nullptr)
        return FALSE;
    const BOOL wasShown = window->Widget().isHidden() ? FALSE : TRUE;
    window->Widget().setVisible(nCmdShow != SW_HIDE);
    return wasShown;
}

BOOL CWnd::EnableToolTips(BOOL bEnable)
{
    WindowSide* const window = WindowSide::Of(m_hWnd);
    if (window == nullptr)
        return FALSE;
    window->HasToolTips = bEnable != FALSE;
    return TRUE;
}

CWnd* CWnd::SetCapture()
{
    CWnd* const before = GetCapture();
    if (WindowSide* const window = WindowSide::Of(m_hWnd))
        SetCaptureTo(*window);
    return before;
}

CWnd* CWnd::GetCapture()
{
    WindowSide* const window = CaptureWindow();
    return window != nullptr ? FromHandle(window->Handle()) : nullptr;
}

BOOL ReleaseCapture()
{
    if (WindowSide* const window = CaptureWindow())
        ReleaseCaptureOf(*window);
    return TRUE;
}

int CWnd::GetWindowTextLength() const
{
    const WindowSide* const window = WindowSide::Of(m_hWnd);
    return window != nullptr ? static_cast<int>(window->Text().size()) : 0;
}

void CWnd::GetWindowText(CString& rString) const
{
    const WindowSide* const window = WindowSide::Of(m_hWnd);
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

BOOL CWnd::PreTranslateMessage(MSG* /*pMsg*/)
{
    return FALSE;
}

void CWnd::PreSubclassWindow() {}

void CWnd::PostNcDestroy() {}

int CWnd::OnCreate(CREATESTRUCT* /*lpCreateStruct*/)
{
    return static_cast<int>(Default());
}

void CWnd::OnNcDestroy()
{
    Default();
    Detach();
    PostNcDestroy();
}

void CWnd::OnSettingChange(UINT /*uFlags*/, LPCTSTR /*lpszSection*/)
{
    const auto tell = [](HWND window, LPARAM lParam) -> BOOL {
        const MSG& told = *reinterpret_cast<const MSG*>(lParam);
        if (FromHandlePermanent(window) != nullptr)
            ::SendMessageW(window, told.message, told.wParam, told.lParam);
        return TRUE;
    };
    const MSG told = currentMessage;
    if (WindowSide* const window = WindowSide::Of(m_hWnd); window != nullptr && window->Widget().isWindow())
        ::EnumChildWindows(m_hWnd, tell, reinterpret_cast<LPARAM>(&told));
    Default();
}

const MSG* CWnd::GetCurrentMessage()
{
    return &currentMessage;
}

LRESULT CWnd::Default()
{
    return DefWindowProc(currentMessage.message, currentMessage.wParam, currentMessage.lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    WindowSide* const window = WindowSide::Of(m_hWnd);
    return window != nullptr ? window->Default(message, wParam, lParam) : 0;
}
