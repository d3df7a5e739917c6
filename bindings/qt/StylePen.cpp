#include "StylePen.h"

#include <DashPattern.h>

#include <algorithm>
#include <cstdlib>

namespace styleatlas::qt
{
namespace
{

constexpr int MaxWidth = 256;

} // namespace

QPen MakePen(const Style& style)
{
    if (style.lineStyle == LineStyle::None)
        return Qt::NoPen;
    const Color color = style.DrawnLineColor();
    const int width = std::clamp(std::abs(int{style.lineWidth}), 1, MaxWidth);
    QPen pen{QColor{color.Red(), color.Green(), color.Blue()}};
    pen.setWidth(width);
    pen.setCosmetic(true);
    pen.setCapStyle(width > 1 ? Qt::RoundCap : Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    const gdi::DashPattern* const pattern = gdi::FindDashPattern(static_cast<int>(style.lineStyle));
    if (width == 1 && pattern != nullptr)
        pen.setDashPattern({pattern->Lengths.begin(), pattern->Lengths.end()});
    return pen;
}

} // namespace styleatlas::qt
