// How the framework's object of a control gets its window.
#pragma once

#include <ControlClass.h>
#include <afxwin.h>

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
