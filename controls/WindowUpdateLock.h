// Keeps a window from being painted.
#pragma once

#include <afxwin.h>

// For as long as it lives; without effect while another window is kept from it.
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
