#include "Likeness.h"

#include <algorithm>
#include <cstdlib>

namespace styleatlas::distinct
{
namespace
{

SymbolShape DrawnShape(SymbolShape shape)
{
    return shape >= SymbolShape::None && shape <= SymbolShape::Point ? shape : SymbolShape::None;
}

SymbolFill DrawnFill(SymbolShape shape, SymbolFill fill)
{
    const bool hasDot = fill == SymbolFill::EmptyWithDot;
    const bool isEmpty = fill == SymbolFill::Empty || hasDot;
    switch (shape) {
    case SymbolShape::Triangle:
    case SymbolShape::Triangle2:
    case SymbolShape::Square:
    case SymbolShape::Diamond:
        return fill == SymbolFill::Filled || hasDot ? fill : SymbolFill::Empty;
    case SymbolShape::Circle:
        return isEmpty ? fill : SymbolFill::Filled;
    case SymbolShape::Plus:
    case SymbolShape::Asterisk:
        return hasDot ? fill : SymbolFill::Filled;
    default:
        return SymbolFill::Filled;
    }
}

LineStyle DrawnLine(LineStyle line, int width)
{
    if (line == LineStyle::None)
        return line;
    return line > LineStyle::Solid && line < LineStyle::None && std::abs(width) <= 1 ? line
                                                                                     : LineStyle::Solid;
}

constexpr Color WithoutUnusedByte(Color color)
{
    return {color.value & 0xFFFFFF};
}

} // namespace

Drawn::Drawn(const Style& style)
    : shape{DrawnShape(style.symbolShape)}, fill{DrawnFill(style.symbolShape, style.symbolFill)},
      line{DrawnLine(style.lineStyle, style.lineWidth)}
{
    if (shape != SymbolShape::None)
        symbolColor = WithoutUnusedByte(style.symbolColor);
    if (line != LineStyle::None)
        lineColor = WithoutUnusedByte(style.DrawnLineColor());
}

std::vector<Closeness> TooClose(const Drawn& one, const Drawn& other)
{
    std::vector<Closeness> close;
    for (const Sight sight : Sights) {
        const auto difference = [sight](const std::optional<Color>& a, const std::optional<Color>& b) {
            return a && b ? Difference(Seen(*a, sight), Seen(*b, sight)) : 0;
        };
        const double larger = std::max(difference(one.symbolColor, other.symbolColor),
                                       difference(one.lineColor, other.lineColor));
        if (larger < MinDifference)
            close.push_back({sight, larger});
    }
    return close;
}

std::vector<Faintness> TooFaint(const Drawn& curve, Color ground)
{
    std::vector<Faintness> faint;
    for (const auto& color : {curve.symbolColor, curve.lineColor}) {
        if (!color || (!faint.empty() && faint.front().color.value == color->value))
            continue;
        if (const double contrast = Contrast(*color, ground); contrast < MinContrast)
            faint.push_back({*color, contrast});
    }
    return faint;
}

} // namespace styleatlas::distinct
