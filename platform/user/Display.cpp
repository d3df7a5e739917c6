#include "Display.h"

#include <QGuiApplication>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

using Clock = std::chrono::steady_clock;

constexpr const char* displayVariables[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
constexpr std::chrono::seconds longestTrial{5};
constexpr std::chrono::minutes refusalHolds{1};

bool NamesDisplay()
{
    for (const char* const variable : displayVariables) {
        const char* const value = std::getenv(variable);
        if (value != nullptr && *value != 0)
            return true;
    }
    return false;
}

void EndTrialAtFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/)
{
    if (type == QtFatalMsg)
        _exit(EXIT_FAILURE);
}

// In the child, until it is ended. It writes a byte when it has an application object, and leaves no trace:
// none of the host's handlers, files and threads are its own. It does without the desktop's theme, which may
// share a connection of the host's to the display.
[[noreturn]] void TryInChild(int result)
{
    for (int number = 1; number < NSIG; ++number)
        std::signal(number, SIG_DFL);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (const int nowhere = open("/dev/null", O_WRONLY); nowhere >= 0) {
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
    }
    setenv("QT_QPA_PLATFORMTHEME", "generic", 1);
    unsetenv("SESSION_MANAGER");
    qInstallMessageHandler(EndTrialAtFatal);
    static char name[] = "styleatlas";
    static char* arguments[] = {name, nullptr};
    int count = 1;
    const QGuiApplication trial(count, arguments);
    if (QGuiApplication::primaryScreen() == nullptr || write(result, name, 1) != 1)
        _exit(EXIT_FAILURE);
    for (;;)
        pause();
}

// Whether a child says in time that it has succeeded.
bool Hears(int result)
{
    const auto end = Clock::now() + longestTrial;
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd source{result, POLLIN, 0};
        const int ready = poll(&source, 1, left > 0 ? static_cast<int>(left) : 0);
        if (ready < 0 && errno == EINTR)
            continue;
        char byte = 0;
        return ready == 1 && read(result, &byte, 1) == 1;
    }
}

} // namespace

DisplayTrial::DisplayTrial()
{
    static Clock::time_point refusedUntil;
    if (!NamesDisplay() || Clock::now() < refusedUntil)
        return;
    Run();
    if (!m_hasSucceeded)
        refusedUntil = Clock::now() + refusalHolds;
}

void DisplayTrial::Run()
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return;
    m_child = fork();
    if (m_child == 0)
        TryInChild(ends[1]);
    close(ends[1]);
    m_hasSucceeded = m_child > 0 && Hears(ends[0]);
    close(ends[0]);
}

DisplayTrial::~DisplayTrial()
{
    if (m_child <= 0)
        return;
    kill(m_child, SIGKILL);
    while (waitpid(m_child, nullptr, 0) < 0 && errno == EINTR) {
    }
}
