// A write past a file-size limit or into a broken pipe raises a signal that would end the host. Within the
// scope of a SignalGuard such a write only fails.
#pragma once

#include <csignal>

class SignalGuard
{
public:
    SignalGuard() noexcept;
    SignalGuard(const SignalGuard&) = delete;
    SignalGuard& operator=(const SignalGuard&) = delete;
    ~SignalGuard(); // takes back the signals raised in the scope, and leaves those that the host had pending

private:
    sigset_t m_guarded;
    sigset_t m_hostMask;
    sigset_t m_hostPending;
};
