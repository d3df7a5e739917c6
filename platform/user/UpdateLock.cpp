// The one window whose painting is locked.
#include "Window.h"

#include <QPointer>

BOOL LockWindowUpdate(HWND handle)
{
    static QPointer<QWidget> locked;
    // A window is gone before its widget is deleted.
    const bool isHeld = Window::Of(locked.data()) != nullptr;
    if (handle == nullptr) {
        if (isHeld)
            locked->setUpdatesEnabled(true);
        locked.clear();
        return TRUE;
    }
    Window* const window = Window::Of(handle);
    if (isHeld || window == nullptr)
        return FALSE;
    locked = &window->Widget();
    locked->setUpdatesEnabled(false);
    return TRUE;
}
