// The owner of a colour control: hears what the control tells.
#pragma once

#include <afxwin.h>
#include <controls/ColorMessages.h>
#include <functional>
#include <iosfwd>
#include <vector>

namespace test
{

struct ColorNotice {
    UINT Message;
    COLORREF Color;
    LPARAM Id = 0;

    friend bool operator==(const ColorNotice&, const ColorNotice&) = default;
    friend std::ostream& operator<<(std::ostream& out, const ColorNotice& notice);
};
using ColorNotices = std::vector<ColorNotice>;

// A window that keeps the messages of ColorMessages.h.
class k_ColorListener : public CWnd
{
public:
    explicit k_ColorListener(const RECT& place, CWnd* owner = nullptr);

    ColorNotices Heard(); // since the last call

    std::function<void(UINT message)> m_reaction; // to each message

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    ColorNotices m_heard;
};

} // namespace test
