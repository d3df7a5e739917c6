// The palette of the library's windows.
#pragma once

#include <QPalette>

namespace gdi
{

// Whether windows keep to a light palette of their own. The colours of curves are made for paper, so they do
// on a desktop with dark grounds or light text.
bool HasOwnPalette();

// The palette of the library's windows and of GetSysColor: the desktop's, or the light one. Needs an
// application object.
QPalette WindowPalette();

} // namespace gdi
