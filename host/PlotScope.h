// What a picture shows of a plot.
#pragma once

#include "PlotData.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

namespace atlashost
{

struct CurvePlace {
    std::size_t panel = 0;
    std::size_t curve = 0; // in the panel

    bool operator==(const CurvePlace&) const = default;
};

// The ranges of a panel's axes; without one, that of all readings.
struct Zoom {
    std::optional<Range> times;
    std::optional<Range> values;
};

struct PlotScope {
    std::vector<Zoom> zooms;        // of the first panels; the others are not zoomed
    std::vector<CurvePlace> marked; // all other curves are pale, unless it is empty

    Zoom ZoomOf(std::size_t panel) const { return panel < zooms.size() ? zooms[panel] : Zoom{}; }
    bool IsPale(CurvePlace place) const
    {
        return !marked.empty() && std::ranges::find(marked, place) == marked.end();
    }
};

} // namespace atlashost
