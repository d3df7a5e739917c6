// The end of the road for what handlers throw: on the other side stands Qt, through which no exception may
// pass.
#pragma once

#include <afxobj.h>

// Runs the body; an exception out of it, of whatever kind, ends here. Gives whether none came.
template <class Body> bool Contain(Body body) noexcept
{
    try {
        body();
        return true;
    } catch (CException* e) {
        e->Delete();
    } catch (...) { // the message that threw is all that is lost
    }
    return false;
}
