// Owner draw: the parent of a control is asked to draw what the control shows.
#pragma once

#include <QPainter>
#include <QRect>
#include <winctrl.h>

class Window;

// Sends WM_DRAWITEM to the control's parent, and shows what has been drawn. Number, action, state and data of
// the item are the caller's to fill in, and its kind, which chooses the colours of the context as the desktop
// has them. The item's rectangle begins at 0, 0 whatever its place in the control. Nothing is shown without
// memory for the pixels.
void DrawByOwner(QPainter& painter, const QRect& place, Window& control, DRAWITEMSTRUCT item);
