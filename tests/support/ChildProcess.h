// Runs code in a process of its own, which may be killed, limited or stripped of its rights.
#pragma once

#include <cerrno>
#include <csignal>
#include <grp.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace test
{

inline constexpr uid_t userWithoutRights = 65534;

// A fork of this process. It ends with what its body returns, 0 to 99; an alarm ends a body that hangs.
class ChildProcess
{
public:
    template <class Body> explicit ChildProcess(Body body) : m_id(fork())
    {
        if (m_id < 0)
            throw std::system_error(errno, std::generic_category(), "fork");
        if (m_id > 0)
            return;
        alarm(maxLifetime);
        try {
            _exit(body());
        } catch (...) {
            _exit(threw);
        }
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess()
    {
        if (m_id > 0)
            Kill();
    }

    // What the body returned, or the number of the signal that ended it, with a minus.
    int Wait()
    {
        int status = 0;
        while (waitpid(m_id, &status, 0) < 0 && errno == EINTR) {
        }
        m_id = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    void Kill()
    {
        kill(m_id, SIGKILL);
        Wait();
    }

private:
    static constexpr int threw = 100;
    static constexpr unsigned maxLifetime = 60; // seconds

    pid_t m_id;
};

// The number that the next file gets: a file left open raises it.
inline int NextDescriptor()
{
    const int next = dup(STDERR_FILENO);
    close(next);
    return next;
}

template <class Body> int RunInChild(Body body)
{
    return ChildProcess(body).Wait();
}

// For a child: no file may grow beyond this size from here on.
inline bool LimitFileSize(rlim_t bytes)
{
    const rlimit limit{bytes, bytes};
    return setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

// For a child: gives up the rights of the superuser, if it has them.
inline bool BecomeOrdinaryUser()
{
    return geteuid() != 0 ||
           (setgroups(0, nullptr) == 0 && setgid(userWithoutRights) == 0 && setuid(userWithoutRights) == 0);
}

// Hands a file or folder to the user that BecomeOrdinaryUser changes to.
inline bool GiveToOrdinaryUser(const char* path)
{
    return geteuid() != 0 || chown(path, userWithoutRights, userWithoutRights) == 0;
}

} // namespace test
