// A window that records its messages.
#pragma once

#include "Gui.h"

#include <commctrl.h>

namespace test
{

void Note(const std::string& event);

// The records since the last call, separated by commas.
std::string Heard();

std::string At(CPoint point); // "3,4"

extern const UINT registered; // a message

class k_RecordingWindow : public CWnd
{
public:
    explicit k_RecordingWindow(std::string name) : m_name(std::move(name)) {}

    BOOL CreatePopup(DWORD style = WS_POPUP | WS_VISIBLE); // at 40, 30, of 60 x 50 pixels
    BOOL CreateChild(CWnd& parent, UINT id);               // at 10, 5, of 20 x 20 pixels

    // Creates and shows the window with the child, whose id is 3, and drops the records.
    void Open(k_RecordingWindow* child = nullptr);

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

    afx_msg int OnCreate(LPCREATESTRUCT creation)
    {
        Say("create " + std::to_string(creation->cx));
        return m_createResult;
    }
    afx_msg void OnDestroy() { Say("destroy"), Default(); }
    afx_msg void OnNcDestroy() { Say("ncdestroy"), CWnd::OnNcDestroy(); }
    afx_msg void OnPaint()
    {
        ++m_paints;
        CPaintDC dc(this);
        if (m_fill != CLR_INVALID)
            dc.FillSolidRect(0, 0, 10, 10, m_fill);
    }
    afx_msg void OnSize(UINT, int cx, int cy) { Say("size " + At({cx, cy})); }
    afx_msg void OnEnable(BOOL enable) { Say(enable != FALSE ? "enabled" : "disabled"); }
    afx_msg void OnMouseMove(UINT, CPoint point) { Say("move " + At(point)); }
    afx_msg void OnLButtonDown(UINT flags, CPoint point)
    {
        Say("down " + At(point) + ((flags & MK_LBUTTON) != 0 ? " L" : ""));
    }
    afx_msg void OnLButtonUp(UINT, CPoint point)
    {
        const CPoint onScreen(static_cast<short>(LOWORD(GetMessagePos())), HIWORD(GetMessagePos()));
        Say("up " + At(point) + " at " + At(onScreen));
    }
    afx_msg void OnKeyDown(UINT key, UINT, UINT) { Say("key " + std::to_string(key)); }
    afx_msg LRESULT OnRegistered(WPARAM wParam, LPARAM lParam)
    {
        return static_cast<LRESULT>(wParam) + lParam;
    }
    afx_msg void OnClicked() { Say("clicked"); }
    afx_msg void OnMenu() { Say("command"); }
    afx_msg void OnTold(NMHDR* header, LRESULT* result)
    {
        *result = static_cast<LRESULT>(header->idFrom) + 2;
    }
    afx_msg void OnContextMenu(CWnd* from, CPoint point)
    {
        Say("menu " + At(point) + " of " + std::to_string(from->GetDlgCtrlID()));
        Default();
    }
    afx_msg void OnNeedText(UINT id, NMHDR* header, LRESULT*)
    {
        Say("text for " + std::to_string(id) + " at " + At(GetCurrentMessage()->pt));
        std::u16string(_T("a <b>")).copy(reinterpret_cast<NMTTDISPINFOW*>(header)->szText, m_tipLength);
    }

    DECLARE_MESSAGE_MAP()

private:
    std::string m_name;
};

} // namespace test
