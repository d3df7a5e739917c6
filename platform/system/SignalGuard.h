// Writing past a file-size limit or into a broken pipe raises a signal that kills the host by default. Within
// the scope of a SignalGuard the write just fails.
#pragma once

#include <csignal>

class SignalGuard
{
public:
    SignalGuard() noexcept;
    SignalGuard(const SignalGuard&) = delete;
    SignalGuard& operator=(const SignalGuard&) = delete;
    ~SignalGuard(); // discards the signals raised in the scope, not those that were pending before it

private:
    sigset_t m_guarded;
    sigset_t m_hostMask;
    sigset_t m_hostPending;
};
