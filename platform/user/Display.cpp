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
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds longestTrial{5};
constexpr std::chrono::seconds refusalHolds{2};
constexpr std::chrono::minutes silenceHolds{1};

// The trial that failed last.
struct Failure {
    std::string Display;
    Clock::time_point HoldsUntil;
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

// None of the host's handlers, files and threads are the child's own.
void LeaveHost()
{
    for (int number = 1; number < NSIG; ++number)
        std::signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    if (const int nowhere = open("/dev/null", O_WRONLY); nowhere >= 0) {
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
    }
}

// In the child. It begins when it is told to, sends a byte when it has an application object, and ends when
// the line is closed, or by the alarm. It leaves no trace, and does without the desktop's theme, which may
// share a connection of the host's to the display.
[[noreturn]] void TryInChild(int line)
{
    LeaveHost();
    char byte = 0;
    if (read(line, &byte, 1) != 1)
        _exit(EXIT_FAILURE);
    alarm(static_cast<unsigned>(longestTrial.count()) + 1);
    setenv("QT_QPA_PLATFORMTHEME", "generic", 1);
    unsetenv("SESSION_MANAGER");
    qInstallMessageHandler(EndTrialAtFatal);
    static char name[] = "styleatlas";
    static char* arguments[] = {name, nullptr};
    int count = 1;
    const QGuiApplication trial(count, arguments);
    alarm(0);
    if (QGuiApplication::primaryScreen() != nullptr && write(line, &byte, 1) == 1)
        (void)!read(line, &byte, 1);
    _exit(EXIT_SUCCESS);
}

} // namespace

DisplayTrial::DisplayTrial()
{
    std::string display = NamedDisplay();
    if (display.empty() || (display == LastFailure().Display && Clock::now() < LastFailure().HoldsUntil))
        return;
    Run();
    if (m_answer == Answer::Refusal)
        LastFailure() = {std::move(display), Clock::now() + refusalHolds};
    else if (m_answer == Answer::Silence)
        LastFailure() = {std::move(display), Clock::now() + silenceHolds};
}

// The child does nothing before it has its descriptor, so that the number stands for it until then.
void DisplayTrial::Run()
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return;
    m_line = ends[0];
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]); // or the line would never close
        TryInChild(ends[1]);
    }
    close(ends[1]);
    m_process = child > 0 ? static_cast<int>(syscall(SYS_pidfd_open, child, 0)) : -1;
    if (m_process >= 0 && send(m_line, "", 1, MSG_NOSIGNAL) == 1)
        m_answer = Hear();
}

DisplayTrial::Answer DisplayTrial::Hear() const
{
    const auto end = Clock::now() + longestTrial;
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd source{m_line, POLLIN, 0};
        const int ready = poll(&source, 1, left > 0 ? static_cast<int>(left) : 0);
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready == 0)
            return Answer::Silence;
        char byte = 0;
        return ready == 1 && read(m_line, &byte, 1) == 1 ? Answer::Success : Answer::Refusal;
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
