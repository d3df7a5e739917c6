// What the layer asks of a window outside of its messages; most kinds of control leave the default.
#pragma once

#include <winscroll.h>

class QAccessibleInterface;
class QKeyEvent;

class WindowKind
{
public:
    WindowKind() = default;
    WindowKind(const WindowKind&) = delete;
    WindowKind& operator=(const WindowKind&) = delete;
    virtual ~WindowKind() = default;

    // All values of a scroll bar; false for a bar that the window doesn't have.
    virtual bool ScrollInfo(int /*bar*/, SCROLLINFO& /*info*/) const { return false; }
    // For a window that is a scroll bar: sets what fMask names and gives the new position.
    virtual int SetScrollInfo(const SCROLLINFO& /*info*/) { return 0; }

    // For keys that do what the mouse would do: true if this was one. Otherwise the key becomes WM_KEYDOWN.
    virtual bool ActForMouse(const QKeyEvent& /*key*/) { return false; }

    // Its object for screen readers, of Qt's; null for that of its Qt class.
    virtual QAccessibleInterface* NewAccessible() { return nullptr; }

    virtual void OnStyleChanged() {}
};
