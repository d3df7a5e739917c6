// The application object that windows need.
#pragma once

#include <windef.h>

class QWidget;

// Which thread may create the application object of a program without one. A dialog is opened by the thread
// of the program's windows; a message box comes from any thread.
enum class MakingThread { Calling, Main };

// Keeps an application object while windows need it. The program's own is left alone. If there is none, but a
// display, the outermost holder creates one and deletes it at its end; nothing of it remains, and the program
// may create its own. Holders end in reverse order. A holder on the wrong thread has no effect.
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

// Whether this thread can show windows now: it has an application object with a screen, and the X server, if
// there is one, still runs.
bool CanShowWindows();

// The top-level widget that owns a dialog: that of the owner, which is a window of the layer or the host,
// otherwise the active one. Null if there is none, and for a foreign window, which isn't a widget. A popup is
// hidden, since it would stay above the dialog and take its input, and its own owner becomes that of the
// dialog.
QWidget* DialogOwner(HWND owner);
