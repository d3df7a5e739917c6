// The dashes of pens one pixel wide.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <span>
#include <windows.h>

namespace gdi
{

struct DashPattern {
    int Style;
    std::span<const int> Lengths; // in pixels: on, off, on, off ...

    constexpr int Period() const
    {
        int period = 0;
        for (const int length : Lengths)
            period += length;
        return period;
    }

    // Bit i: the pixel i steps into a period is inked.
    constexpr std::uint32_t Bits() const
    {
        std::uint32_t bits = 0;
        int position = 0;
        for (std::size_t i = 0; i < Lengths.size(); position += Lengths[i++]) {
            if (i % 2 == 0)
                bits |= ((std::uint32_t{1} << Lengths[i]) - 1) << position;
        }
        return bits;
    }
};

// A sample of a line has 16 pixels on each side of a symbol of size 15. Each style shows there what
// distinguishes it from all others.
inline constexpr int dashLengths[] = {8, 4};
inline constexpr int dotLengths[] = {3, 3};
inline constexpr int dashDotLengths[] = {6, 2, 2, 2};
inline constexpr int dashDotDotLengths[] = {5, 3, 2, 3, 2, 3};
inline constexpr DashPattern dashPatterns[] = {{PS_DASH, dashLengths},
                                               {PS_DOT, dotLengths},
                                               {PS_DASHDOT, dashDotLengths},
                                               {PS_DASHDOTDOT, dashDotDotLengths}};

// Null for a style without dashes.
constexpr const DashPattern* FindDashPattern(int style)
{
    const auto* const found = std::ranges::find(dashPatterns, style, &DashPattern::Style);
    return found != std::end(dashPatterns) ? found : nullptr;
}

} // namespace gdi
