// The symbol of a style as lines and areas, for devices on which pixels don't count.
#pragma once

#include <styleatlas.hpp>

#include <QPainter>

namespace styleatlas::qt
{

// Draws the symbol around the origin. The painter's pen and brush are others afterwards.
void DrawSymbolOutline(QPainter& painter, const Style& style);

} // namespace styleatlas::qt
