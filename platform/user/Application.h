// The application object that windows need.
#pragma once

#include <windef.h>

class QWidget;

// Where an application object may be made for a program that has none: a dialog is opened by the thread of
// the program's windows, a message comes from any.
enum class MakingThread { Calling, Main };

// Holds the application object as long as windows need it. The program's own is left as it is. Where there is
// none, and a display, the outermost holder makes one and ends it with itself; then nothing of it stays, and
// the program may make its own. Holders end in reverse order. One on the wrong thread holds nothing.
class ApplicationHolder
{
public:
    explicit ApplicationHolder(MakingThread thread = MakingThread::Calling);
    ApplicationHolder(const ApplicationHolder&) = delete;
    ApplicationHolder& operator=(const ApplicationHolder&) = delete;
    ~ApplicationHolder();

private:
    bool m_holds = false;
};

// Whether this thread can show windows now: there is an application object, of this thread, with a screen,
// and its X server, if it has one, has not gone away.
bool CanShowWindows();

// The top-level widget that a dialog stands before: that of the owner, a window of the layer's or of the
// host's, else the program's active one; null if there is none, and before a foreign window, which is no
// widget.
QWidget* DialogOwner(HWND owner);
