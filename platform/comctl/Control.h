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
    LPCTSTR Text; // may be null
    DWORD Style;
    RECT Place; // in client coordinates of the parent
    CWnd* Parent;
    UINT Id;
};

// Fails, with nothing attached, if the parent has no window, if the object has one already, and if WM_CREATE
// gave -1. The object has received PostNcDestroy then, if it has no window.
BOOL CreateControl(CWnd& object, ControlFactory factory, const ControlCreation& creation);
