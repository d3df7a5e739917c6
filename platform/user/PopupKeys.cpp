#include "PopupKeys.h"

#include "Window.h"

#include <QApplication>
#include <QEvent>
#include <utility>

namespace
{

bool HasOwnPopup()
{
    const QWidget* widget = QApplication::activePopupWidget();
    while (widget != nullptr && Window::Of(widget) == nullptr)
        widget = widget->parentWidget();
    return widget != nullptr;
}

} // namespace

// Qt asks the popup whether the key is a shortcut, at which a list closes, and then sends the press to the
// window with the focus. Under Wayland that is the dialog.
bool EndsWithPopup(const QObject* receiver, const QEvent& event)
{
    static bool hadPopup = false;
    if (!receiver->isWindowType())
        return false;
    if (event.type() == QEvent::ShortcutOverride)
        hadPopup = HasOwnPopup();
    else if (event.type() == QEvent::KeyPress)
        return std::exchange(hadPopup, false) && QApplication::activePopupWidget() == nullptr;
    return false;
}
