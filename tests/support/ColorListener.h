// The owner of a colour control hears what the control tells; the user sees what it looks like.
#pragma once

#include "Gui.h"

#include <controls/ColorMessages.h>

namespace test
{

// A window that notes the messages of ColorMessages.h: a message as "change ff" (its colour, in hexadecimal)
// or "change ff of 7" (its lParam, if that isn't 0), a click of control 7 that reached it as "click".
class k_ColorListener : public CWnd
{
public:
    explicit k_ColorListener(const RECT& place);

    std::function<void(UINT message)> m_reaction; // to each message

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    afx_msg void OnClicked() { Note("click"); }

    DECLARE_MESSAGE_MAP()
};

} // namespace test
