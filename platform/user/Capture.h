// The window that has the mouse, and where the mouse is.
#pragma once

#include <QPoint>

class QEvent;
class QObject;
class Window;

// The window that all mouse messages go to; null if there is none. One that isn't on the screen yet gets
// those from outside of the program's windows when it is.
Window* CaptureWindow();
void SetCaptureTo(Window& window);
void ReleaseCaptureOf(const Window& window); // does nothing unless the window has it

// Where the mouse was at the input that is being handled, in screen coordinates.
QPoint MessagePosition();
void SetMessagePosition(QPoint position);

// To be called for every event of the program before it is handled. Sends a mouse event that is meant for
// another widget to the window with the capture; true when it has done so.
bool ServeCapture(const QObject* receiver, QEvent* event);
