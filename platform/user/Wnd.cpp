// Attachment of framework objects to windows.
#include "ForeignWindow.h"
#include "Window.h"

#include <afxwin.h>
#include <map>
#include <memory>
#include <utility>

namespace
{

// The temporary objects of windows without an attached one.
std::map<HWND, std::unique_ptr<CWnd>>& KeptObjects()
{
    static auto* const kept = new std::map<HWND, std::unique_ptr<CWnd>>;
    return *kept;
}

} // namespace

CWnd::~CWnd()
{
    if (m_hWnd != nullptr)
        CWnd::DestroyWindow();
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    Window* const window = Window::Of(hWnd);
    if (window == nullptr || window->Attached != nullptr)
        return FALSE;
    m_hWnd = hWnd;
    window->Attached = this;
    PreSubclassWindow();
    return TRUE;
}

HWND CWnd::Detach()
{
    if (Window* const window = Window::Of(m_hWnd))
        window->Attached = nullptr;
    return std::exchange(m_hWnd, nullptr);
}

CWnd* CWnd::FromHandlePermanent(HWND hWnd)
{
    Window* const window = Window::Of(hWnd);
    return window != nullptr ? window->Attached : nullptr;
}

CWnd* CWnd::FromHandle(HWND hWnd)
{
    Window* const window = Window::Of(hWnd);
    if (window == nullptr)
        return ForeignObject(hWnd);
    if (window->Attached != nullptr)
        return window->Attached;
    std::erase_if(KeptObjects(), [](const auto& kept) { return Window::Of(kept.first) == nullptr; });
    std::unique_ptr<CWnd>& kept = KeptObjects()[hWnd];
    if (!kept) {
        kept = std::make_unique<CWnd>();
        kept->m_hWnd = hWnd;
    }
    return kept.get();
}

BOOL CWnd::DestroyWindow()
{
    Window* const window = Window::Of(m_hWnd);
    if (window == nullptr || (window->Attached != nullptr && window->Attached != this))
        return FALSE;
    if (window->Attached == this)
        window->Destroy(); // this object may be gone afterwards
    return TRUE;
}

void CWnd::PreSubclassWindow() {}

void CWnd::PostNcDestroy() {}

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
