// The messages' names of keys and buttons.
#pragma once

#include <Qt>
#include <winmsg.h>

class QEvent;
class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

// 0 for a key without a name. Letters and digits have their character codes. All other characters share one
// name, because their codes are the names of other keys.
UINT VirtualKeyOf(const QKeyEvent& event);

// Whether the event is a QMouseEvent: a move or a button.
bool IsMouseEvent(const QEvent& event);

// 0 for a button without messages.
UINT MouseMessageOf(const QMouseEvent& event);

// Whether a wheel is turned sideways rather than up or down.
bool IsSideways(const QWheelEvent& event);

// MK_ bits.
WPARAM MouseKeys(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers);
