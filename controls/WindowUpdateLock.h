// Suppresses the painting of a window.
#pragma once

#include <afxwin.h>

// Locks the window for its own lifetime. No effect while another window is locked.
class k_WindowUpdateLock
{
public:
    explicit k_WindowUpdateLock(HWND window) : m_isLocked(::LockWindowUpdate(window) != FALSE) {}
    k_WindowUpdateLock(const k_WindowUpdateLock&) = delete;
    k_WindowUpdateLock& operator=(const k_WindowUpdateLock&) = delete;
    ~k_WindowUpdateLock()
    {
        if (m_isLocked)
            ::LockWindowUpdate(nullptr);
    }

private:
    bool m_isLocked;
};
