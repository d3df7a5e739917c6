#include "Capture.h"

#include "InputNames.h"
#include "Window.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWindow>

namespace
{

Window* captureWindow = nullptr;
QPoint messagePosition;

// For mouse events outside of our windows, which a popup receives anyway. A display refuses the grab to a
// window that isn't on the screen yet, for instance because it waits for the window manager.
void GrabIfExposed()
{
    QWidget& widget = captureWindow->Client();
    const QWindow* const native = widget.window()->windowHandle();
    if (!captureWindow->IsPopup() && native != nullptr && native->isExposed() &&
        QWidget::mouseGrabber() != &widget)
        widget.grabMouse();
}

} // namespace

Window* CaptureWindow()
{
    return captureWindow;
}

void SetCaptureTo(Window& window)
{
    if (captureWindow != nullptr && captureWindow != &window)
        ReleaseCaptureOf(*captureWindow);
    captureWindow = &window;
    GrabIfExposed();
}

void ReleaseCaptureOf(const Window& window)
{
    if (captureWindow != &window)
        return;
    if (QWidget::mouseGrabber() == &captureWindow->Client())
        captureWindow->Client().releaseMouse();
    captureWindow = nullptr;
}

QPoint MessagePosition()
{
    return messagePosition;
}

void SetMessagePosition(QPoint position)
{
    messagePosition = position;
}

bool ServeCapture(const QObject* receiver, QEvent* event)
{
    if (captureWindow == nullptr)
        return false;
    if (event->type() == QEvent::Expose)
        GrabIfExposed();
    if (!IsMouseEvent(*event) || receiver == &captureWindow->Client() || !receiver->isWidgetType())
        return false;
    const auto& mouse = *static_cast<QMouseEvent*>(event);
    QWidget& target = captureWindow->Client();
    const QPointF local = target.mapFromGlobal(mouse.globalPosition());
    QMouseEvent redirected(mouse.type(), local, mouse.globalPosition(), mouse.button(), mouse.buttons(),
                           mouse.modifiers(), mouse.pointingDevice());
    QCoreApplication::sendEvent(&target, &redirected);
    return true;
}
