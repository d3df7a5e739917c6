// The way of a message to its handler, and the framework's own handlers.
#include "Window.h"

#include <afxwin.h>
#include <cstdint>

namespace
{

constexpr UINT firstRegistered = 0xC000;

bool Fits(const AFX_MSGMAP_ENTRY& entry, UINT message, UINT code, UINT id)
{
    if (entry.pRegistered != nullptr)
        return message >= firstRegistered && message == *entry.pRegistered;
    if (entry.nMessage != message || entry.nCode != code)
        return false;
    const bool hasId = message == WM_COMMAND || message == WM_NOTIFY;
    return !hasId || (id >= entry.nID && id <= entry.nLastID);
}

// Searches the map and its base maps; null if none has an entry for the message.
const AFX_MSGMAP_ENTRY* FindEntry(const AFX_MSGMAP* map, UINT message, UINT code, UINT id)
{
    for (; map != nullptr; map = map->pfnGetBaseMap != nullptr ? map->pfnGetBaseMap() : nullptr) {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfnCall != nullptr; ++entry) {
            if (Fits(*entry, message, code, id))
                return entry;
        }
    }
    return nullptr;
}

// The same for messages without code and id, with the last results: maps never change.
const AFX_MSGMAP_ENTRY* FindEntry(const AFX_MSGMAP* map, UINT message)
{
    struct Result {
        const AFX_MSGMAP* Map;
        UINT Message;
        const AFX_MSGMAP_ENTRY* Entry;
    };
    constexpr std::size_t resultCount = 64;
    static constinit thread_local Result results[resultCount]{};
    if (message >= firstRegistered) // its number may be registered later
        return FindEntry(map, message, 0, 0);
    Result& result =
        results[(reinterpret_cast<std::uintptr_t>(map) / sizeof(AFX_MSGMAP) + message) % resultCount];
    if (result.Map != map || result.Message != message)
        result = {map, message, FindEntry(map, message, 0, 0)};
    return result.Entry;
}

} // namespace

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_NCDESTROY()
ON_WM_SETTINGCHANGE()
END_MESSAGE_MAP()

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    return OnWndMsg(message, wParam, lParam, &result) != FALSE ? result
                                                               : DefWindowProc(message, wParam, lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    switch (message) {
    case WM_COMMAND:
        return OnCommand(wParam, lParam);
    case WM_NOTIFY:
        return OnNotify(wParam, lParam, pResult);
    case WM_DRAWITEM:
        if (ReflectToChild(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem, message, wParam, lParam,
                           pResult))
            return TRUE;
        break;
    case WM_MEASUREITEM: {
        const auto* const item = reinterpret_cast<const MEASUREITEMSTRUCT*>(lParam);
        const HWND child = ::GetDlgItem(m_hWnd, static_cast<int>(item->CtlID));
        if (ReflectToChild(child, message, wParam, lParam, pResult))
            return TRUE;
        break;
    }
    default:
        break;
    }
    const AFX_MSGMAP_ENTRY* const entry = FindEntry(GetMessageMap(), message);
    if (entry == nullptr)
        return FALSE;
    *pResult = entry->pfnCall(this, wParam, lParam);
    return TRUE;
}

// The notification of a control is reflected to the control first.
BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (lParam != 0 && ReflectToChild(reinterpret_cast<HWND>(lParam), WM_COMMAND, wParam, lParam, &result))
        return TRUE;
    const AFX_MSGMAP_ENTRY* const entry =
        FindEntry(GetMessageMap(), WM_COMMAND, HIWORD(wParam), LOWORD(wParam));
    if (entry == nullptr)
        return FALSE;
    entry->pfnCall(this, wParam, lParam);
    return TRUE;
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const auto* const header = reinterpret_cast<const NMHDR*>(lParam);
    const AFX_MSGMAP_ENTRY* const entry =
        FindEntry(GetMessageMap(), WM_NOTIFY, header->code, static_cast<UINT>(header->idFrom));
    if (entry == nullptr)
        return FALSE;
    *pResult = entry->pfnCall(this, wParam, lParam);
    return TRUE;
}

BOOL CWnd::ReflectToChild(HWND hWndChild, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    CWnd* const child = FromHandlePermanent(hWndChild);
    return child != nullptr ? child->OnChildNotify(message, wParam, lParam, pResult) : FALSE;
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const UINT code = message == WM_COMMAND ? HIWORD(wParam) : 0;
    const AFX_MSGMAP_ENTRY* const entry = FindEntry(GetMessageMap(), message + WM_REFLECT_BASE, code, 0);
    if (entry == nullptr)
        return FALSE;
    *pResult = entry->pfnCall(this, wParam, lParam);
    return TRUE;
}

BOOL CWnd::PreTranslateMessage(MSG* /*pMsg*/)
{
    return FALSE;
}

int CWnd::OnCreate(CREATESTRUCT* /*lpCreateStruct*/)
{
    return static_cast<int>(Default());
}

void CWnd::OnNcDestroy()
{
    Detach();
    PostNcDestroy();
}

// A top-level window forwards the message to the objects of the windows inside.
void CWnd::OnSettingChange(UINT /*uFlags*/, LPCTSTR /*lpszSection*/)
{
    const auto forward = [](HWND child, LPARAM lParam) -> BOOL {
        const MSG& change = *reinterpret_cast<const MSG*>(lParam);
        if (FromHandlePermanent(child) != nullptr)
            ::SendMessageW(child, change.message, change.wParam, change.lParam);
        return TRUE;
    };
    const MSG change = Window::CurrentMessage();
    if (Window* const window = Window::Of(m_hWnd); window != nullptr && window->Widget().isWindow())
        ::EnumChildWindows(m_hWnd, forward, reinterpret_cast<LPARAM>(&change));
}

const MSG* CWnd::GetCurrentMessage()
{
    return &Window::CurrentMessage();
}

LRESULT CWnd::Default()
{
    const MSG& current = Window::CurrentMessage();
    return DefWindowProc(current.message, current.wParam, current.lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    Window* const window = Window::Of(m_hWnd);
    return window != nullptr ? window->Default(message, wParam, lParam) : 0;
}
