// The horizontal scroll bar.
#pragma once

#include <QScrollBar>
#include <WidgetWindow.h>

// Sends WM_HSCROLL for actions of the user. Its position changes by SetScrollInfo alone; while the user drags
// the thumb, that follows the mouse. The wheel counts as a drag.
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
    void NotifyScroll(UINT code, int position = 0);
    void End();

    bool m_isScrolling = false;
};
