// Changes the part of a plot that is shown.
#pragma once

#include "PlotLayout.h"
#include "PlotScope.h"

#include <QPointF>
#include <QRect>

#include <cstddef>

namespace atlashost
{

enum class ZoomedAxes { Both, Times, Values };

// Zooms within the ranges of all readings. Panels with the same range of times keep the same. The plot and
// the scope must outlive it.
class PlotZoom
{
public:
    PlotZoom(const Plot& plot, PlotScope& scope) : m_plot{plot}, m_scope{scope} {}

    // Shows so many times the range; the reading at the point of the panel's frame stays where it is.
    void Scale(const PanelLayout& layout, std::size_t panel, QPointF at, double factor, ZoomedAxes axes);

    // Shows in the whole frame what is in the part of it.
    void Show(const PanelLayout& layout, std::size_t panel, QRect part, ZoomedAxes axes);

    // Moves the curves of the layout by so many pixels.
    void Pan(const PanelLayout& layout, std::size_t panel, QPointF way);

private:
    void SetTimes(const PanelLayout& layout, std::size_t panel, Range wanted);
    void SetValues(const PanelLayout& layout, std::size_t panel, Range wanted);

    const Plot& m_plot;
    PlotScope& m_scope;
};

} // namespace atlashost
