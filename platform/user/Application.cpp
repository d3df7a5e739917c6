#include "Application.h"

#include "Capture.h"
#include "WindowSide.h"

#include <QApplication>
#include <QPointer>
#include <cstdlib>
#include <dlfcn.h>

namespace
{

// Sees the mouse events of the program while a window has the capture, and the program's coming and going.
class Watcher : public QObject
{
public:
    Watcher()
    {
        qApp->installEventFilter(this);
        connect(qApp, &QGuiApplication::applicationStateChanged, this, &Watcher::TellActivation);
    }

    bool eventFilter(QObject* receiver, QEvent* event) override { return RedirectToCapture(receiver, event); }

private:
    // Every top-level window hears of it, with whether the program is active now.
    void TellActivation(Qt::ApplicationState state)
    {
        const bool isActive = state == Qt::ApplicationActive;
        if (isActive == m_isActive)
            return;
        m_isActive = isActive;
        QList<QPointer<QWidget>> widgets;
        for (QWidget* const widget : QApplication::topLevelWidgets())
            widgets.append(widget);
        for (const QPointer<QWidget>& widget : widgets) {
            if (WindowSide* const window = WindowSide::Of(widget))
                window->SendContained(WM_ACTIVATEAPP, isActive ? 1 : 0);
        }
    }

    bool m_isActive = true;
};

bool IsSet(const char* name)
{
    const char* const value = std::getenv(name);
    return value != nullptr && *value != 0;
}

// Whether somebody answers at the X display: Qt ends the program where nobody does.
bool CanConnectToX()
{
    void* const xcb = dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
    if (xcb == nullptr)
        return false;
    using Connect = void* (*)(const char*, int*);
    using HasError = int (*)(void*);
    using Disconnect = void (*)(void*);
    const auto connect = reinterpret_cast<Connect>(dlsym(xcb, "xcb_connect"));
    const auto hasError = reinterpret_cast<HasError>(dlsym(xcb, "xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<Disconnect>(dlsym(xcb, "xcb_disconnect"));
    if (connect == nullptr || hasError == nullptr || disconnect == nullptr)
        return false;
    void* const connection = connect(nullptr, nullptr);
    const bool answers = hasError(connection) == 0;
    disconnect(connection);
    return answers;
}

bool HasDisplay()
{
    if (IsSet("QT_QPA_PLATFORM") || IsSet("WAYLAND_DISPLAY"))
        return true;
    return IsSet("DISPLAY") && CanConnectToX();
}

// Stays until the process ends: widgets that nobody has destroyed would not survive it.
void MakeApplication()
{
    static char name[] = "styleatlas";
    static char* arguments[] = {name, nullptr};
    static int count = 1;
    [[maybe_unused]] static auto* const application = new QApplication(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
}

} // namespace

bool EnsureApplication()
{
    if (QCoreApplication::instance() == nullptr) {
        if (!HasDisplay())
            return false;
        MakeApplication();
    }
    auto* const application = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (application == nullptr)
        return false;
    static QPointer<Watcher> watcher;
    if (watcher.isNull() || watcher->parent() != application) {
        watcher = new Watcher;
        watcher->setParent(application);
    }
    return true;
}

// A window of ours that has been destroyed is hidden first, and may be the active one for a while still.
QWidget* DialogOwner(HWND owner)
{
    if (WindowSide* const window = WindowSide::Of(owner))
        return window->Widget().window();
    QWidget* const active = QApplication::activeWindow();
    return active != nullptr && active->isVisible() ? active : nullptr;
}
