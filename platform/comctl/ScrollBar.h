// The scroll bar: what the user does on it goes to the parent.
#pragma once

#include <QScrollBar>
#include <WidgetWindow.h>

// Sends WM_HSCROLL, and stays where it is until somebody sets it; only its thumb follows the mouse that holds
// it. The wheel is a thumb's move that ends at once.
class ScrollBarWindow : public WidgetWindow<QScrollBar>
{
public:
    ScrollBarWindow(DWORD style, QWidget* parent);

    bool ScrollInfo(int bar, SCROLLINFO& info) const override;
    int SetScrollInfo(const SCROLLINFO& info) override;

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void OnAction(int action);
    void Tell(UINT code, int position = 0);
    void End();

    bool m_isScrolling = false;
};
