// The owner of a colour control hears what the control tells; the user sees what it looks like.
#pragma once

#include "Gui.h"

#include <controls/ColorMessages.h>
#include <sstream>

namespace test
{

// A window that notes the messages of ColorMessages.h: a message as "change ff" (its colour, in hexadecimal)
// or "change ff of 7" (its lParam, if that isn't 0), a click that reached it as "click".
class k_ColorListener : public CWnd
{
public:
    explicit k_ColorListener(const RECT& place)
    {
        CreateEx(0, AfxRegisterWndClass(0), _T(""), WS_POPUP | WS_VISIBLE, place.left, place.top,
                 place.right - place.left, place.bottom - place.top, nullptr, 0);
        Heard(); // forgets what another window noted
    }

    std::function<void(UINT message)> m_reaction; // to each message

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
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
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        const BOOL isHandled = CWnd::OnCommand(wParam, lParam);
        if (!isHandled)
            Note("click");
        return isHandled;
    }
};

} // namespace test
