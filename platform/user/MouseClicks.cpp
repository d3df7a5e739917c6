#include "MouseClicks.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>

namespace
{

void Send(QWidget& widget, QEvent::Type type, QPoint point, Qt::MouseButton button, Qt::MouseButtons held)
{
    QMouseEvent event(type, point, widget.mapToGlobal(point), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

void SendMouseMove(QWidget& widget, QPoint point)
{
    Send(widget, QEvent::MouseMove, point, Qt::NoButton, Qt::NoButton);
}

void SendMouseClicks(QWidget& widget, QPoint point, int count)
{
    const QPointer<QWidget> target(&widget);
    for (int i = 0; i < count && !target.isNull(); ++i) {
        const QEvent::Type press = i == 0 ? QEvent::MouseButtonPress : QEvent::MouseButtonDblClick;
        Send(widget, press, point, Qt::LeftButton, Qt::LeftButton);
        if (!target.isNull())
            Send(widget, QEvent::MouseButtonRelease, point, Qt::LeftButton, Qt::NoButton);
    }
}
