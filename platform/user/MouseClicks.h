// The mouse events that a user would make.
#pragma once

#include <QPoint>

class QWidget;

// Move the mouse to a point of the widget, and click there with the left button, once or twice. A handler may
// delete the widget; the events after that aren't sent.
void SendMouseMove(QWidget& widget, QPoint point);
void SendMouseClicks(QWidget& widget, QPoint point, int count);
