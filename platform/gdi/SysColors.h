// The colours of the desktop's parts.
#pragma once

#include <windef.h>

namespace gdi
{

constexpr int sysColorCount = 31;

// Takes the place of the desktop's colour for good; to be called by the thread that paints. Indexes that
// don't exist are passed over.
void SetSysColor(int index, COLORREF color);

} // namespace gdi
