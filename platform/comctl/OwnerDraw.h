// Owner draw: the parent of a control draws its items.
#pragma once

#include <QPainter>
#include <QRect>
#include <winctrl.h>

class Window;

// Sends WM_DRAWITEM to the control's parent and shows the result. The caller fills in number, action, state
// and data of the item, and its type, which decides on the initial colours of the context. The item's
// rectangle begins at 0, 0. Shows nothing without memory for the pixels.
void DrawByOwner(QPainter& painter, const QRect& place, Window& control, DRAWITEMSTRUCT item);
