// Draws a whole plot.
#pragma once

#include "PlotScope.h"

#include <QFont>
#include <QPainter>
#include <QSize>

#include <cstddef>

namespace atlashost
{

// Draws a plot of at least one panel into a rectangle of the given size at the painter's origin. Returns the
// number of panels that don't fit. The time depends on the size of the picture and the number of curves, not
// on the number of readings.
std::size_t DrawPlot(QPainter& painter, QSize size, const Plot& plot, const PlotScope& scope = {});

// The font of a plot, independent of the desktop's settings.
QFont PlotFont();

} // namespace atlashost
