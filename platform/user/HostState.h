// What Qt changes in a program beyond its own objects, and what an application object of ours gives back.
#pragma once

#include <string>

// Around the making of an application object of ours. Qt sets the program's locale with the first one in the
// process, whoever makes it, and never again: the locale is as before afterwards, and the first application
// object that the host makes later finds the one that Qt would have set for it.
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

// The program's handlers for errors of X, in whose place Qt puts its own: kept before an application object
// is made, put back when it has ended.
void KeepXHandlers();
void RestoreXHandlers();
