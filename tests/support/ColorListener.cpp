#include "ColorListener.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <utility>

UINT g_msgSelChange = RegisterWindowMessageW(_T("ColorPopupSelChange"));
UINT g_msgDropdown = RegisterWindowMessageW(_T("ColorPopupDropdown"));
UINT g_msgCloseUp = RegisterWindowMessageW(_T("ColorPopupCloseUp"));
UINT g_msgSelEndOK = RegisterWindowMessageW(_T("ColorPopupSelEndOK"));
UINT g_msgSelEndChange = RegisterWindowMessageW(_T("ColorPopupSelEndChange"));

namespace
{

const std::pair<UINT, const char*> names[] = {
    {g_msgSelChange, "SelChange"}, {g_msgDropdown, "Dropdown"},         {g_msgCloseUp, "CloseUp"},
    {g_msgSelEndOK, "SelEndOK"},   {g_msgSelEndChange, "SelEndChange"},
};

const std::pair<UINT, const char*>* NameOf(UINT message)
{
    return std::ranges::find_if(names, [message](const auto& name) { return name.first == message; });
}

} // namespace

namespace test
{

std::ostream& operator<<(std::ostream& out, const ColorNotice& notice)
{
    return out << NameOf(notice.Message)->second << ' ' << std::hex << notice.Color << std::dec << " of "
               << notice.Id;
}

k_ColorListener::k_ColorListener(const RECT& place, CWnd* owner)
{
    CreateEx(0, AfxRegisterWndClass(0), _T(""), WS_POPUP | WS_VISIBLE, place.left, place.top,
             place.right - place.left, place.bottom - place.top, owner != nullptr ? owner->m_hWnd : nullptr,
             0);
}

ColorNotices k_ColorListener::Heard()
{
    return std::exchange(m_heard, {});
}

LRESULT k_ColorListener::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
    if (NameOf(message) != std::end(names)) {
        m_heard.push_back({message, static_cast<COLORREF>(wParam), lParam});
        if (m_reaction)
            m_reaction(message);
    }
    return result;
}

} // namespace test
