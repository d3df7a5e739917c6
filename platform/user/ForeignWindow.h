// Windows of the host, by the desktop's ids: possible owners of dialogs.
#pragma once

#include <memory>
#include <windef.h>

class CWnd;
class QWidget;
class QWindow;

// The object of a host's window: a widget of this program or an X window; null for any other id. Without an
// application object that can't be decided, and every id but 0 is accepted. The object is kept until the
// process ends.
CWnd* ForeignObject(HWND id);

// The widget with the id; null if there is none.
QWidget* ForeignWidget(HWND id);

// Whether the id is that of an X window of another toolkit.
bool IsForeignXWindow(HWND id);

// Makes an X window of another toolkit the transient parent of a dialog that isn't shown yet, during the
// lifetime of the object. No effect for any other id, and for a dialog with a parent widget.
class ForeignOwner
{
public:
    ForeignOwner(QWidget& dialog, HWND id);
    ForeignOwner(const ForeignOwner&) = delete;
    ForeignOwner& operator=(const ForeignOwner&) = delete;
    ~ForeignOwner();

private:
    std::unique_ptr<QWindow> m_window;
};
