#include "ColorListener.h"

#include <sstream>

namespace test
{

BEGIN_MESSAGE_MAP(k_ColorListener, CWnd)
ON_BN_CLICKED(7, ThisClass::OnClicked)
END_MESSAGE_MAP()

k_ColorListener::k_ColorListener(const RECT& place)
{
    CreateEx(0, AfxRegisterWndClass(0), _T(""), WS_POPUP | WS_VISIBLE, place.left, place.top,
             place.right - place.left, place.bottom - place.top, nullptr, 0);
    Heard(); // forgets what another window noted
}

LRESULT k_ColorListener::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const std::pair<UINT, const char*> names[] = {{g_msgSelChange, "change"},
                                                  {g_msgDropdown, "dropdown"},
                                                  {g_msgCloseUp, "closeup"},
                                                  {g_msgSelEndOK, "ok"},
                                                  {g_msgSelEndChange, "cancel"}};
    for (const auto& [number, name] : names) {
        if (number != message)
            continue;
        std::ostringstream text;
        text << name << ' ' << std::hex << wParam;
        Note(text.str() + (lParam != 0 ? " of " + std::to_string(lParam) : ""));
        if (m_reaction)
            m_reaction(message);
    }
    return CWnd::WindowProc(message, wParam, lParam);
}

} // namespace test
