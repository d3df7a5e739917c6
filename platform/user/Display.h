// Whether there is a display to show windows on.
#pragma once

#include <sys/types.h>

// Tries to make an application object, in a child process: Qt aborts where a display doesn't answer, and
// where its plugin is missing or doesn't load, which can be neither foretold nor undone. Where that can't be
// told from the environment it takes tens of milliseconds, or five seconds where the display doesn't answer;
// a refusal holds for a minute.
//
// The child stays connected to the display as long as the trial lives: an X server that loses its last client
// starts anew, and refuses who comes meanwhile.
class DisplayTrial
{
public:
    DisplayTrial();
    DisplayTrial(const DisplayTrial&) = delete;
    DisplayTrial& operator=(const DisplayTrial&) = delete;
    ~DisplayTrial();

    bool HasSucceeded() const { return m_hasSucceeded; }

private:
    void Run();

    pid_t m_child = 0;
    bool m_hasSucceeded = false;
};
