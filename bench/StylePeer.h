// The painting of a style as a user of QPainter would do it.
#pragma once

#include <QPainter>
#include <model/LineDef.h>

namespace bench
{

// The picture of a style in a cell, without antialiasing: its line, and its symbol over the middle of it. Of
// the same look as the library's, but for how each rounds. The painter comes without antialiasing.
void PaintStyleByPainter(QPainter& painter, const k_LineDef& style, const QRect& cell);

} // namespace bench
