// What is under the mouse in a plot.
#pragma once

#include "PlotLayout.h"
#include "PlotScope.h"

#include <QPoint>

#include <cstddef>
#include <optional>
#include <string>

namespace atlashost
{

struct FoundReading {
    CurvePlace place;
    Reading reading;
    QPoint point; // its place in the picture
};

// The panel whose frame or axes the point is on.
std::optional<std::size_t> PanelAt(const PlotLayout& layout, QPoint point);

// The reading next to the point that is shown in this panel; none if all are further away than some pixels.
std::optional<FoundReading> FindReading(const Panel& panel, const PanelLayout& layout, std::size_t index,
                                        QPoint point);

// "file: quantity, value unit, time"
std::string TextOf(const Plot& plot, const FoundReading& found);

// "value unit, time" of a point in a panel's frame, as exactly as a pixel is.
std::string TextOf(const Panel& panel, const PanelLayout& layout, QPoint point);

} // namespace atlashost
