// How a framework object gets a control as its window.
#pragma once

#include <ControlClass.h>
#include <Window.h>
#include <afxwin.h>

// A ControlFactory for a class of controls.
template <class Control> Window& MakeControl(DWORD style, QWidget* parent)
{
    return *new Control(style, parent);
}

struct ControlCreation {
    LPCTSTR Text; // null is the empty text
    DWORD Style;
    RECT Place; // in client coordinates of the parent
    CWnd* Parent;
    UINT Id;
};

// False, and nothing attached, without a parent's window, for an object that has one already, and when
// WM_CREATE gave -1. PostNcDestroy ends an object without a window then.
BOOL CreateControl(CWnd& object, ControlFactory factory, const ControlCreation& creation);
