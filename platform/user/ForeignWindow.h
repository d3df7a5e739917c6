// Windows that the layer hasn't made, by the desktop's ids: what a host gives for the owner of a dialog.
#pragma once

#include <memory>
#include <windef.h>

class CWnd;
class QWidget;
class QWindow;

// The object of a window that a host names: a widget of this program, or a window of the X display; null for
// an id that names neither. As long as the program has no application object every id but 0 is taken for one,
// as nobody can tell yet. The object stays until the process ends.
CWnd* ForeignObject(HWND id);

// The widget of this program with the id; null if there is none.
QWidget* ForeignWidget(HWND id);

// Whether the id is of an X window that is no widget's.
bool IsForeignXWindow(HWND id);

// Has a dialog that isn't shown yet stand before a window of another toolkit, as long as the object lives.
// Nothing happens where the id names none, and for a dialog that has a widget for its parent.
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
