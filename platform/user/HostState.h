// Global state of the host that Qt changes, and that is restored.
#pragma once

#include <string>

// Exists while an application object of ours is created. Qt sets the program's locale with the first
// application object of the process only. The locale is restored, and set when the host creates its first
// application object, as Qt would have done.
class HostLocale
{
public:
    HostLocale();
    HostLocale(const HostLocale&) = delete;
    HostLocale& operator=(const HostLocale&) = delete;
    ~HostLocale();

private:
    std::string m_before;
};

// Saves and restores the program's X error handlers, which Qt replaces: before an application object is
// created, and after it is deleted.
void KeepXHandlers();
void RestoreXHandlers();
