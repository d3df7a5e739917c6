// Paints styles with QPainter in the usual way.
#pragma once

#include <QPainter>
#include <model/LineDef.h>

namespace bench
{

// Paints a style into a cell: its line, and its symbol over the middle. The result looks like the library's
// except for rounding. The painter must have antialiasing switched off.
void PaintStyleByPainter(QPainter& painter, const k_LineDef& style, const QRect& cell);

} // namespace bench
