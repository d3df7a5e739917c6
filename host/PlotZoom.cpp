#include "PlotZoom.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace atlashost
{
namespace
{

constexpr double FinestZoom = 1e-12; // of the largest number of the axis: labels still tell ticks apart

double Width(Range range)
{
    return range.high - range.low;
}

Range Scaled(Range range, double fixed, double factor)
{
    return {fixed + (range.low - fixed) * factor, fixed + (range.high - fixed) * factor};
}

Range Moved(Range range, double way)
{
    return {range.low + way, range.high + way};
}

// The range, moved into the bounds; none if it is as wide as they are.
std::optional<Range> Within(Range range, Range bounds)
{
    const double finest = std::max({std::abs(bounds.low), std::abs(bounds.high), Width(bounds)}) * FinestZoom;
    if (Width(range) < finest) {
        const double middle = range.low + Width(range) / 2;
        range = {middle - finest / 2, middle + finest / 2};
    }
    constexpr double Slack = 1e-9; // tolerates rounding
    if (Width(range) >= Width(bounds) * (1 - Slack))
        return std::nullopt;
    if (range.low < bounds.low)
        return Moved(range, bounds.low - range.low);
    if (range.high > bounds.high)
        return Moved(range, bounds.high - range.high);
    return range;
}

} // namespace

void PlotZoom::Scale(const PanelLayout& layout, std::size_t panel, QPointF at, double factor, ZoomedAxes axes)
{
    const FrameMap map = layout.Map();
    if (axes != ZoomedAxes::Values)
        SetTimes(layout, panel, Scaled(layout.times.range, map.TimeAt(at.x()), factor));
    if (axes != ZoomedAxes::Times)
        SetValues(layout, panel, Scaled(layout.values.range, map.ValueAt(at.y()), factor));
}

void PlotZoom::Show(const PanelLayout& layout, std::size_t panel, QRect part, ZoomedAxes axes)
{
    const FrameMap map = layout.Map();
    if (axes != ZoomedAxes::Values)
        SetTimes(layout, panel, {map.TimeAt(part.left()), map.TimeAt(part.right())});
    if (axes != ZoomedAxes::Times)
        SetValues(layout, panel, {map.ValueAt(part.bottom()), map.ValueAt(part.top())});
}

void PlotZoom::Pan(const PanelLayout& layout, std::size_t panel, QPointF way)
{
    SetTimes(layout, panel, Moved(layout.times.range, -way.x() * layout.Map().TimeOfPixel()));
    SetValues(layout, panel, Moved(layout.values.range, way.y() * layout.Map().ValueOfPixel()));
}

void PlotZoom::SetTimes(const PanelLayout& layout, std::size_t panel, Range wanted)
{
    m_scope.zooms.resize(m_plot.panels.size());
    const Panel& changed = m_plot.panels[panel];
    for (std::size_t i = 0; i < m_plot.panels.size(); ++i) {
        const Panel& other = m_plot.panels[i];
        if (other.timeKind == changed.timeKind && other.times == changed.times)
            m_scope.zooms[i].times = Within(wanted, layout.allTimes);
    }
}

void PlotZoom::SetValues(const PanelLayout& layout, std::size_t panel, Range wanted)
{
    m_scope.zooms.resize(m_plot.panels.size());
    m_scope.zooms[panel].values = Within(wanted, layout.allValues);
}

} // namespace atlashost
