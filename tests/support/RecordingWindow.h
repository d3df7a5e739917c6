// A window of 60 x 50 pixels at 40, 30, or a child of 20 x 20 pixels at 10, 5, that records its messages.
#pragma once

#include "Gui.h"

#include <commctrl.h>

namespace test
{

class k_RecordingWindow : public CWnd
{
public:
    explicit k_RecordingWindow(std::string name) : m_name(std::move(name)) {}

    BOOL CreatePopup(DWORD style = WS_POPUP | WS_VISIBLE)
    {
        const LPCTSTR face = ClassWith(COLOR_BTNFACE);
        return CreateEx(0, face, _T("title"), style, 40, 30, 60, 50, nullptr, 0);
    }
    BOOL CreateChild(CWnd& parent, UINT id)
    {
        const LPCTSTR white = ClassWith(COLOR_WINDOW);
        return CreateEx(0, white, _T(""), WS_CHILD | WS_VISIBLE, 10, 5, 20, 20, parent.m_hWnd, id);
    }
    // Creates and shows the window with the child, whose id is 3, and drops the records.
    void Open(k_RecordingWindow* child = nullptr)
    {
        ASSERT_TRUE(CreatePopup() && (child == nullptr || child->CreateChild(*this, 3)));
        Settle();
        Heard();
    }

    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        if (pMsg->message == m_stopped)
            Say("stops");
        return pMsg->message == m_stopped ? TRUE : CWnd::PreTranslateMessage(pMsg);
    }

    UINT m_stopped = 0;
    int m_createResult = 0;
    COLORREF m_fill = CLR_INVALID;
    int m_paints = 0;
    std::size_t m_tipLength = 0;

protected:
    void Say(const std::string& event) const { Note(m_name + ' ' + event); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const CPoint point(lParam);
        switch (message) {
        case WM_CREATE:
            Say("create " + std::to_string(reinterpret_cast<LPCREATESTRUCT>(lParam)->cx));
            return m_createResult;
        case WM_DESTROY:
        case WM_NCDESTROY:
            Say(message == WM_DESTROY ? "destroy" : "ncdestroy");
            break;
        case WM_PAINT:
            Paint();
            return 0;
        case WM_SIZE:
        case WM_MOUSEMOVE:
            Say((message == WM_SIZE ? "size " : "move ") + At(point));
            return 0;
        case WM_ENABLE:
            Say(wParam != FALSE ? "enabled" : "disabled");
            return 0;
        case WM_LBUTTONDOWN:
            Say("down " + At(point) + ((wParam & MK_LBUTTON) != 0 ? " L" : ""));
            return 0;
        case WM_LBUTTONUP:
            Say("up " + At(point) + " at " + At(CPoint(static_cast<LPARAM>(GetMessagePos()))));
            return 0;
        case WM_KEYDOWN:
            Say("key " + std::to_string(wParam));
            return 0;
        case WM_CONTEXTMENU:
            Say("menu " + At(point) + " of " +
                std::to_string(FromHandle(reinterpret_cast<HWND>(wParam))->GetDlgCtrlID()));
            break;
        case WM_NOTIFY:
            Say("text for " + std::to_string(wParam) + " at " + At(GetCurrentMessage()->pt));
            std::u16string(_T("a <b>")).copy(reinterpret_cast<NMTTDISPINFOW*>(lParam)->szText, m_tipLength);
            return TRUE;
        default:
            break;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }

private:
    static LPCTSTR ClassWith(INT_PTR color)
    {
        return AfxRegisterWndClass(0, nullptr, reinterpret_cast<HBRUSH>(color + 1));
    }
    static std::string At(CPoint point) { return std::to_string(point.x) + ',' + std::to_string(point.y); }
    void Paint()
    {
        ++m_paints;
        CPaintDC dc(this);
        if (m_fill != CLR_INVALID)
            dc.FillSolidRect(0, 0, 10, 10, m_fill);
    }

    std::string m_name;
};

} // namespace test
