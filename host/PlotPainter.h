// Draws a whole plot.
#pragma once

#include "PlotLayout.h"

#include <QFont>
#include <QPainter>
#include <QSize>

namespace atlashost
{

// Draws a plot of at least one panel into a rectangle of the given size at the painter's origin, and returns
// where its parts are.
PlotLayout DrawPlot(QPainter& painter, QSize size, const Plot& plot, const PlotScope& scope = {});

// The font of a plot, independent of the desktop's settings.
QFont PlotFont();

} // namespace atlashost
