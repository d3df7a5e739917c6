#include "SignalGuard.h"

#include <ctime>
#include <pthread.h>

namespace
{

constexpr int guardedSignals[] = {SIGXFSZ, SIGPIPE};

} // namespace

SignalGuard::SignalGuard() noexcept
{
    sigemptyset(&m_guarded);
    for (const int number : guardedSignals)
        sigaddset(&m_guarded, number);
    pthread_sigmask(SIG_BLOCK, &m_guarded, &m_hostMask);
    sigpending(&m_hostPending);
}

SignalGuard::~SignalGuard()
{
    sigset_t pending;
    sigpending(&pending);
    constexpr std::timespec atOnce{0, 0};
    for (const int number : guardedSignals) {
        if (sigismember(&pending, number) != 1 || sigismember(&m_hostPending, number) == 1)
            continue;
        sigset_t raisedHere;
        sigemptyset(&raisedHere);
        sigaddset(&raisedHere, number);
        sigtimedwait(&raisedHere, nullptr, &atOnce);
    }
    pthread_sigmask(SIG_SETMASK, &m_hostMask, nullptr);
}
