// Curves of a plot that look alike, and curves that are hard to see.
#pragma once

#include "PlotScope.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace atlashost
{

struct CurveRemark {
    CurvePlace curve;
    std::optional<CurvePlace> other; // the curve that looks like it; none for a curve that is hard to see
    std::string reason;              // in the user's language

    std::vector<CurvePlace> Curves() const;
};

struct StyleCheck {
    static constexpr std::size_t MaxRemarks = 1000;

    std::vector<CurveRemark> pairs;
    std::vector<CurveRemark> faint;
    std::size_t leftOut = 0; // remarks past the greatest number
};

// Compares the curves of each panel with each other: those of other panels do not stand beside them. The
// ground is the paper of the plot.
StyleCheck CheckStyles(const Plot& plot);

} // namespace atlashost
