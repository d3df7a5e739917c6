#include "Display.h"

#include <DisplayNames.h>
#include <QGuiApplication>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds maxDuration{5};
constexpr std::chrono::seconds failureLifetime{2};
constexpr std::chrono::minutes timeoutLifetime{1};

// The last trial that failed.
struct Failure {
    std::string Display;
    Clock::time_point ValidUntil;
};

Failure& LastFailure()
{
    static auto& failure = *new Failure;
    return failure;
}

void EndTrialAtFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/)
{
    if (type == QtFatalMsg)
        _exit(EXIT_FAILURE);
}

// Runs in the child, which ends with the host if that crashes. It waits for a byte, answers with a byte when
// it has an application object, and returns when the socket is closed. It doesn't load the desktop's theme,
// which might use a connection that the host has open.
void TryInChild(int line)
{
    for (int number = 1; number < NSIG; ++number)
        std::signal(number, SIG_DFL); // the handlers are the host's
    // What libraries print of a display that doesn't answer is not the host's output.
    if (const int null = open("/dev/null", O_WRONLY); null >= 0) {
        dup2(null, STDOUT_FILENO);
        dup2(null, STDERR_FILENO);
    }
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    char byte = 0;
    if (read(line, &byte, 1) != 1)
        return;
    setenv("QT_QPA_PLATFORMTHEME", "generic", 1);
    unsetenv("SESSION_MANAGER");
    qInstallMessageHandler(EndTrialAtFatal);
    static char name[] = "styleatlas";
    static char* arguments[] = {name, nullptr};
    int count = 1;
    static const QGuiApplication trial(count, arguments);
    if (QGuiApplication::primaryScreen() != nullptr && write(line, &byte, 1) == 1)
        (void)!read(line, &byte, 1);
}

} // namespace

DisplayTrial::DisplayTrial()
{
    std::string display = NamedDisplay();
    if (display.empty() || (display == LastFailure().Display && Clock::now() < LastFailure().ValidUntil))
        return;
    Run();
    if (m_answer == Answer::Failure)
        LastFailure() = {std::move(display), Clock::now() + failureLifetime};
    else if (m_answer == Answer::Timeout)
        LastFailure() = {std::move(display), Clock::now() + timeoutLifetime};
}

// The child waits until its descriptor is open, so that its process id is valid until then.
void DisplayTrial::Run()
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return;
    m_line = ends[0];
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]); // otherwise the socket would stay open
        TryInChild(ends[1]);
        _exit(EXIT_FAILURE);
    }
    close(ends[1]);
    m_process = child > 0 ? static_cast<int>(syscall(SYS_pidfd_open, child, 0)) : -1;
    if (m_process >= 0 && send(m_line, "", 1, MSG_NOSIGNAL) == 1)
        m_answer = WaitForAnswer();
}

DisplayTrial::Answer DisplayTrial::WaitForAnswer() const
{
    const auto end = Clock::now() + maxDuration;
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd source{m_line, POLLIN, 0};
        const int ready = poll(&source, 1, left > 0 ? static_cast<int>(left) : 0);
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready == 0)
            return Answer::Timeout;
        char byte = 0;
        return ready == 1 && read(m_line, &byte, 1) == 1 ? Answer::Success : Answer::Failure;
    }
}

DisplayTrial::~DisplayTrial()
{
    if (m_line >= 0)
        close(m_line);
    if (m_process < 0)
        return;
    syscall(SYS_pidfd_send_signal, m_process, SIGKILL, nullptr, 0);
    siginfo_t end;
    while (waitid(P_PIDFD, static_cast<id_t>(m_process), &end, WEXITED) < 0 && errno == EINTR) {
    }
    close(m_process);
}
