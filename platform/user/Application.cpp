#include "Application.h"

#include "Capture.h"
#include "Display.h"
#include "ForeignWindow.h"
#include "HostState.h"
#include "Window.h"
#include "XConnection.h"

#include <QApplication>
#include <QPointer>
#include <QThread>
#include <unistd.h>
#include <utility>

namespace
{

// Sees the mouse events of the program while a window has the capture, and the program's coming and going.
class Watcher : public QObject
{
public:
    explicit Watcher(QApplication& application) : QObject(&application)
    {
        application.installEventFilter(this);
        connect(&application, &QGuiApplication::applicationStateChanged, this, &Watcher::TellActivation);
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
            if (Window* const window = Window::Of(widget))
                window->SendContained(WM_ACTIVATEAPP, isActive ? 1 : 0);
        }
    }

    bool m_isActive = true;
};

int holderCount = 0; // all of one thread

// No static object, as widgets that are open when the program ends would not survive it.
QApplication* ownApplication = nullptr;

bool IsMainThread()
{
    return gettid() == getpid();
}

void MakeApplication()
{
    static char name[] = "styleatlas";
    static char* arguments[] = {name, nullptr};
    static int count = 1;
    const DisplayTrial trial;
    if (!trial.HasSucceeded())
        return;
    const HostLocale locale;
    KeepXHandlers();
    ownApplication = new QApplication(count, arguments);
}

// Windows that are to be deleted go first.
void EndApplication()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    delete std::exchange(ownApplication, nullptr);
    RestoreXHandlers();
}

// Null where it is another thread's, or one without widgets.
QApplication* ApplicationOfThread()
{
    auto* const application = qobject_cast<QApplication*>(QCoreApplication::instance());
    return application != nullptr && application->thread() == QThread::currentThread() ? application
                                                                                       : nullptr;
}

QPointer<Watcher>& CurrentWatcher()
{
    static auto& watcher = *new QPointer<Watcher>;
    return watcher;
}

} // namespace

// Qt takes the first thread that asks it for anything for the program's main one: nothing is asked before the
// thread is known to be one for windows.
ApplicationHolder::ApplicationHolder(MakingThread thread)
{
    if (QCoreApplication::instance() == nullptr && (thread == MakingThread::Calling || IsMainThread()))
        MakeApplication();
    QApplication* const application =
        QCoreApplication::instance() != nullptr ? ApplicationOfThread() : nullptr;
    if (application == nullptr)
        return;
    if (CurrentWatcher().isNull())
        CurrentWatcher() = new Watcher(*application);
    m_holds = true;
    ++holderCount;
}

ApplicationHolder::~ApplicationHolder()
{
    if (!m_holds || --holderCount > 0)
        return;
    delete CurrentWatcher();
    if (ownApplication != nullptr)
        EndApplication();
}

bool CanShowWindows()
{
    return QCoreApplication::instance() != nullptr && ApplicationOfThread() != nullptr &&
           QGuiApplication::primaryScreen() != nullptr && !HasLostXServer();
}

// A window of ours that has been destroyed is hidden first, and may be the active one for a while still.
QWidget* DialogOwner(HWND owner)
{
    if (Window* const window = Window::Of(owner))
        return window->Widget().window();
    if (QWidget* const widget = ForeignWidget(owner))
        return widget->window();
    if (IsForeignXWindow(owner))
        return nullptr;
    QWidget* const active = QApplication::activeWindow();
    return active != nullptr && active->isVisible() ? active : nullptr;
}
