// PlotLayout.h: where everything of a plot stands in its picture.
#pragma once

#include "Axis.h"
#include "PlotData.h"

#include <QFontMetrics>
#include <QRect>
#include <QSize>

#include <cstddef>
#include <vector>

namespace atlashost
{

struct PanelLayout {
    QRect all;
    QRect title;
    QRect unit;       // left of the labels, read from below
    QRect frame;      // of the curves: its edges are the ends of the axes
    QRect timeLabels; // below the frame, and as wide as the panel
    Axis times;
    Axis values;
    std::vector<QRect> legend; // of a file each, from the first on; a picture of its style, then its name
    QRect moreFiles;           // says how many others there are; null if there are none
};

// The parts of an entry of the legend.
QRect LegendSample(QRect entry);
QRect LegendName(QRect entry);

struct PlotLayout {
    std::vector<PanelLayout> panels; // as many of the plot's, from the first on, as have room, at least one
    std::size_t missingPanels = 0;
    QRect footer; // says so; null if all have room
};

// Lays out a plot of one panel or more. The frames of all panels are alike, so that times stand below each
// other; panels stand side by side where they would become too low otherwise.
PlotLayout LayOut(const Plot& plot, QSize size, const QFontMetrics& metrics);

// The size in which a plot of so many panels shows well.
QSize GoodSize(std::size_t panels);

} // namespace atlashost
