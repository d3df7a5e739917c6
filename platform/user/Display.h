// Whether there is a display for windows.
#pragma once

// Tries to create an application object in a child process: Qt aborts if the display doesn't answer or the
// platform plugin doesn't load, which can't be predicted or caught. If the environment names a display, the
// trial takes tens of milliseconds, or five seconds for a display that doesn't answer. A failure is
// remembered for two seconds, a timeout for a minute.
//
// The child keeps its connection during the lifetime of the trial: an X server that loses its last client
// resets, and refuses connections meanwhile. The child is identified by a descriptor, because its process id
// may be reused as soon as the host has reaped it.
class DisplayTrial
{
public:
    DisplayTrial();
    DisplayTrial(const DisplayTrial&) = delete;
    DisplayTrial& operator=(const DisplayTrial&) = delete;
    ~DisplayTrial();

    bool HasSucceeded() const { return m_answer == Answer::Success; }

private:
    enum class Answer { Success, Failure, Timeout };

    void Run();
    Answer WaitForAnswer() const;

    int m_process = -1; // the child's descriptor
    int m_line = -1;    // socket to the child, which ends when it is closed
    Answer m_answer = Answer::Failure;
};
