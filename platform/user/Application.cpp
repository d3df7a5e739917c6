#include "Application.h"

#include "Accessibility.h"
#include "Capture.h"
#include "Display.h"
#include "ForeignWindow.h"
#include "HostState.h"
#include "PopupKeys.h"
#include "QtTexts.h"
#include "Window.h"
#include "XConnection.h"

#include <QApplication>
#include <QPointer>
#include <QThread>
#include <unistd.h>
#include <utility>

namespace
{

// Filters mouse events while a window has the capture, and keys that close popups; reports that the program
// is activated or deactivated, and makes the windows accessible.
class Watcher : public QObject
{
public:
    explicit Watcher(QApplication& application) : QObject(&application)
    {
        application.installEventFilter(this);
        accessible::Install();
        connect(&application, &QGuiApplication::applicationStateChanged, this, &Watcher::SendActivation);
    }

    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;
    ~Watcher() override = default;

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        return ServeCapture(receiver, event) || EndsWithPopup(receiver, *event);
    }

private:
    // To all top-level windows.
    void SendActivation(Qt::ApplicationState state)
    {
        QList<QPointer<QWidget>> widgets;
        for (QWidget* const widget : QApplication::topLevelWidgets())
            widgets.append(widget);
        for (const QPointer<QWidget>& widget : widgets) {
            if (Window* const window = Window::Of(widget))
                window->SendContained(WM_ACTIVATEAPP, state == Qt::ApplicationActive ? 1 : 0);
        }
    }
};

int holderCount = 0; // all on one thread

// Not a static object: widgets that are open at the end of the program would outlive it.
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
    LoadQtTexts(*ownApplication);
}

// Deletes windows whose deletion is pending first.
void EndApplication()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    delete std::exchange(ownApplication, nullptr);
    RestoreXHandlers();
}

// Null if it belongs to another thread or has no widgets.
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

// Qt takes the first thread that calls it for the main thread. So it isn't called until this is known to be a
// thread for windows.
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

// A destroyed window of ours is hidden, but may remain the active one for a while.
QWidget* DialogOwner(HWND owner)
{
    if (Window* window = Window::Of(owner)) {
        for (; window->IsPopup(); window = window->Parent())
            window->Widget().hide();
        return window->Widget().window();
    }
    if (QWidget* const widget = ForeignWidget(owner))
        return widget->window();
    if (IsForeignXWindow(owner))
        return nullptr;
    QWidget* const active = QApplication::activeWindow();
    return active != nullptr && active->isVisible() ? active : nullptr;
}
