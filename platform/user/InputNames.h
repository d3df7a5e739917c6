// What messages call the keys and the buttons of input.
#pragma once

#include <Qt>
#include <winmsg.h>

class QKeyEvent;
class QMouseEvent;

// 0 for a key that no message names. Letters and digits have the numbers of their characters; all other
// characters, whose numbers are those of other keys, share one.
UINT VirtualKeyOf(const QKeyEvent& event);

// 0 for a button that no message names.
UINT MouseMessageOf(const QMouseEvent& event);

// MK_ bits.
WPARAM MouseKeys(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers);
