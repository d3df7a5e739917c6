// Whether two curves can be told apart, and whether a curve can be seen.
#pragma once

#include "Sight.h"

#include <optional>
#include <tuple>
#include <vector>

namespace styleatlas::distinct
{

// Colours that differ less (CIEDE2000) are hard to tell apart in thin lines and small symbols.
constexpr double MinDifference = 10;

// Colours with less contrast to the ground are hard to see.
constexpr double MinContrast = 3;

// What is drawn of a style, with one number for all those that look the same: a line wider than a pixel is
// solid, crosses and points have no fill, and any fill of plus and asterisk but the dot is none either.
// Numbers that the enumerations do not name draw no symbol, a filled circle, any other shape empty, and a
// solid line.
struct Drawn {
    explicit Drawn(const Style& style);

    // Whether symbol and line have the same figure. Sizes and widths do not count.
    bool HasFigureOf(const Drawn& other) const
    {
        return shape == other.shape && fill == other.fill && line == other.line;
    }

    // Equal for equal looks.
    auto Look() const
    {
        constexpr std::uint32_t none = 0xFFFFFFFF;
        return std::tuple{shape, fill, line, symbolColor ? symbolColor->value : none,
                          lineColor ? lineColor->value : none};
    }

    bool IsVisible() const { return symbolColor || lineColor; }

    SymbolShape shape;
    SymbolFill fill; // Filled for a shape without one
    LineStyle line;
    std::optional<Color> symbolColor; // of what is drawn
    std::optional<Color> lineColor;
};

struct Closeness {
    Sight sight;
    double difference; // the largest of the colours that are drawn
};

// The sights on which two curves of the same figure have too small a difference.
std::vector<Closeness> TooClose(const Drawn& one, const Drawn& other);

struct Faintness {
    Color color;
    double contrast;
};

// The drawn colours with too little contrast to the ground; each once.
std::vector<Faintness> TooFaint(const Drawn& curve, Color ground);

} // namespace styleatlas::distinct
