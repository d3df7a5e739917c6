#include "Later.h"

#include "Window.h"

#include <QTimer>

void CallLater(Window& window, const std::function<void()>& function)
{
    auto* const timer = new QTimer(&window.Widget());
    timer->setSingleShot(true); // an event loop of the function may run meanwhile
    const auto call = [widget = &window.Widget(), function] {
        if (Window::Of(widget) != nullptr)
            function();
    };
    QObject::connect(timer, &QTimer::timeout, call);
    QObject::connect(timer, &QTimer::timeout, timer, &QObject::deleteLater);
    timer->start(0);
}
