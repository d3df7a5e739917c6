#include "Later.h"

#include "Window.h"

#include <QTimer>

void CallLater(Window& window, const std::function<void()>& function)
{
    QWidget& widget = window.Widget();
    QTimer::singleShot(0, &widget, [&widget, function] {
        if (Window::Of(&widget) != nullptr)
            function();
    });
}
