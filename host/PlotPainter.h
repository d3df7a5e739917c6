// PlotPainter.h: draws a whole plot.
#pragma once

#include "PlotData.h"

#include <QFont>
#include <QPainter>
#include <QSize>

#include <cstddef>

namespace atlashost
{

// Draws a plot of one panel or more into the rectangle of the given size at the painter's origin. Returns the
// number of panels that have no room there. Takes a time that grows with the size of the picture and the
// number of curves, whatever the number of their readings.
std::size_t DrawPlot(QPainter& painter, QSize size, const Plot& plot);

// The font of a plot, without which it would depend on the desktop's settings.
QFont PlotFont();

} // namespace atlashost
