#include "Application.h"

#include "Capture.h"
#include "Display.h"
#include "ForeignWindow.h"
#include "WindowSide.h"

#include <QApplication>
#include <QPointer>
#include <QThread>
#include <clocale>
#include <string>

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

    bool eventFilter(QObject* receiver, QEvent* event) override { return ServeCapture(receiver, event); }

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

// Stays until the process ends: widgets that nobody has destroyed would not survive it. Qt sets the program's
// locale; the host's numbers are to keep their form.
void MakeApplication()
{
    static char name[] = "styleatlas";
    static char* arguments[] = {name, nullptr};
    static int count = 1;
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    [[maybe_unused]] static auto* const application = new QApplication(count, arguments);
    std::setlocale(LC_ALL, locale.c_str());
    QApplication::setQuitOnLastWindowClosed(false);
}

} // namespace

bool EnsureApplication()
{
    if (QCoreApplication::instance() == nullptr) {
        const DisplayTrial trial;
        if (!trial.HasSucceeded())
            return false;
        MakeApplication();
    }
    auto* const application = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (application == nullptr || application->thread() != QThread::currentThread() ||
        QGuiApplication::primaryScreen() == nullptr)
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
    if (QWidget* const widget = ForeignWidget(owner))
        return widget->window();
    if (IsForeignXWindow(owner))
        return nullptr;
    QWidget* const active = QApplication::activeWindow();
    return active != nullptr && active->isVisible() ? active : nullptr;
}
