// Exception barrier: nothing may unwind through Qt.
#pragma once

#include <afxobj.h>

// Calls body and ends every exception of it. Gives whether there was none.
template <class Body> bool Contain(Body body) noexcept
{
    try {
        body();
        return true;
    } catch (CException* e) {
        e->Delete();
    } catch (...) { // only the message that threw is lost
    }
    return false;
}
