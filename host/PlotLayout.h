// The places of the parts of a plot.
#pragma once

#include "Axis.h"
#include "FrameMap.h"
#include "PlotScope.h"

#include <QFontMetrics>
#include <QRect>
#include <QSize>

#include <cstddef>
#include <string>
#include <vector>

namespace atlashost
{

constexpr int TickLength = 4; // pixels outside of the frame

struct PanelLayout {
    QRect all;
    QRect title;
    QRect unit;       // left of the labels, read from below
    QRect frame;      // around the curves: its edges are the ends of the axes
    QRect timeLabels; // below the frame, and as wide as the panel
    Axis times;
    Axis values;
    Range allTimes; // of the axes without zoom
    Range allValues;
    std::vector<QRect> legend; // an entry for each of the first files: a sample of the style, then the name
    QRect moreFiles;           // for the number of the others; null if there are none

    FrameMap Map() const { return {frame, times.range, values.range}; }
    bool IsZoomed() const { return times.range != allTimes || values.range != allValues; }
};

// The parts of an entry of the legend.
QRect LegendSample(QRect entry);
QRect LegendName(QRect entry);

// The last line of a legend without room for so many files.
std::string MoreFiles(std::size_t count);

struct PlotLayout {
    std::vector<PanelLayout> panels; // the first panels of the plot, as many as fit; at least one
    std::size_t missingPanels = 0;
    QRect footer; // for their number; null if all fit
};

// Lays out a plot of at least one panel. The frames of all panels have one size, so that times line up;
// panels are put side by side where they would become too low otherwise.
PlotLayout LayOut(const Plot& plot, const PlotScope& scope, QSize size, const QFontMetrics& metrics);

// A good size for a plot of so many panels.
QSize GoodSize(std::size_t panels);

} // namespace atlashost
