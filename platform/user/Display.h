// Whether there is a display to show windows on.
#pragma once

// Tries to make an application object, in a child process: Qt aborts where a display doesn't answer, and
// where its plugin is missing or doesn't load, which can be neither foretold nor undone. Where that can't be
// told from the environment it takes tens of milliseconds, or five seconds where the display doesn't answer.
// A refusal holds for two seconds, and the silence of a display, which costs so much more, for a minute.
//
// The child stays connected to the display as long as the trial lives: an X server that loses its last client
// starts anew, and refuses who comes meanwhile. It is known by a descriptor alone, since its number may be
// another's as soon as the host, or the system for it, has reaped it.
class DisplayTrial
{
public:
    DisplayTrial();
    DisplayTrial(const DisplayTrial&) = delete;
    DisplayTrial& operator=(const DisplayTrial&) = delete;
    ~DisplayTrial();

    bool HasSucceeded() const { return m_answer == Answer::Success; }

private:
    enum class Answer { Success, Refusal, Silence };

    void Run();
    Answer Hear() const;

    int m_process = -1; // the child's descriptor
    int m_line = -1;    // to and from the child, which ends when it closes
    Answer m_answer = Answer::Refusal;
};
