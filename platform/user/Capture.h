// The mouse capture and the position of the mouse.
#pragma once

#include <QPoint>

class QEvent;
class QObject;
class Window;

// The window that receives all mouse messages; null if there is none. Until it is on the screen, it doesn't
// receive those outside of the program's windows.
Window* CaptureWindow();
void SetCaptureTo(Window& window);
void ReleaseCaptureOf(const Window& window); // if the window has it

// The mouse position of the current input, in screen coordinates.
QPoint MessagePosition();
void SetMessagePosition(QPoint position);

// For every event of the program before it is handled. Redirects a mouse event for another widget to the
// window with the capture; true if it has done so.
bool ServeCapture(const QObject* receiver, QEvent* event);
