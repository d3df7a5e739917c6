// The horizontal scroll bar.
#pragma once

#include "ScrollBarPictures.h"

#include <QScrollBar>
#include <WidgetWindow.h>

// Sends WM_HSCROLL for actions of the user. Its position changes by SetScrollInfo alone; while the user drags
// the thumb, that follows the mouse. The wheel counts as a drag.
class ScrollBarWindow : public WidgetWindow<QScrollBar>
{
public:
    ScrollBarWindow(DWORD style, QWidget* parent);

    // The bar that scrolls a window: the first that is shown beside it, or null.
    static ScrollBarWindow* Beside(const QWidget& widget);

    // Scrolls by a wheel that is turned sideways over the widget. False for any other, and without a bar.
    static bool TakeWheel(const QWidget& widget, QWheelEvent& event);

    // Scrolls as little as possible to show a range of the contents, as the user would with the thumb.
    void Reveal(int left, int right);

    bool ScrollInfo(int bar, SCROLLINFO& info) const override;
    int SetScrollInfo(const SCROLLINFO& info) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void OnAction(int action);
    void NotifyScroll(UINT code, int position = 0);
    void End();

    bool m_isScrolling = false;
    ScrollBarPictures m_pictures;
};
