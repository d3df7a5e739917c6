// Colours as people see them.
#pragma once

#include <styleatlas.hpp>

#include <array>

namespace styleatlas::distinct
{

// The kinds of colour blindness lack one of the three kinds of cones, for red, green and blue.
enum class Sight { Normal, Greyscale, Protan, Deutan, Tritan };
inline constexpr std::array Sights{Sight::Normal, Sight::Greyscale, Sight::Protan, Sight::Deutan,
                                   Sight::Tritan};

// CIE 1976 L*a*b* under D65.
struct Lab {
    double l;
    double a;
    double b;
};

// The colour on a screen (sRGB) as this sight has it: in greyscale its luminance; with colour blindness as by
// Machado, Oliveira and Fernandes (2009) at severity 1.0.
Lab Seen(Color color, Sight sight);

// The colour difference CIEDE2000 with all parametric factors 1.
double Difference(const Lab& one, const Lab& other);

// The contrast ratio of the Web Content Accessibility Guidelines, 1 to 21.
double Contrast(Color one, Color other);

} // namespace styleatlas::distinct
