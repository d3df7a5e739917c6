// The line of a style as a pen.
#pragma once

#include <styleatlas.hpp>

#include <QPen>

namespace styleatlas::qt
{

// A cosmetic pen for painting without antialiasing. Its width is at least 1 and at most 256; a pen wider than
// 1 is solid, and so is one of an unknown line style. Qt::NoPen for a style without a line.
QPen MakePen(const Style& style);

} // namespace styleatlas::qt
