// The colours of the desktop's parts.
#pragma once

#include <windef.h>

namespace gdi
{

constexpr int sysColorCount = 31;

// Takes the place of one of the table; to be called by the thread that paints. Other indexes are passed over.
void SetSysColor(int index, COLORREF color);

} // namespace gdi
