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
    for (const int number : guardedSignals) {
        if (sigismember(&m_hostPending, number) == 1)
            sigdelset(&m_guarded, number);
    }
    constexpr std::timespec atOnce{0, 0};
    while (sigtimedwait(&m_guarded, nullptr, &atOnce) > 0) {
    }
    pthread_sigmask(SIG_SETMASK, &m_hostMask, nullptr);
}
