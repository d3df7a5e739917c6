#include "SymbolPicture.h"

#include <DashPattern.h>
#include <styleatlas-qt.h>

#include <algorithm>
#include <cstdlib>

namespace styleatlas
{
QPen LinePen(const Style& style)
{
    if (style.lineStyle == LineStyle::None)
        return Qt::NoPen;
    const Color color = style.DrawnLineColor();
    const int width = std::clamp(std::abs(int{style.lineWidth}), 1, qt::MaxSize);
    QPen pen{QColor{color.Red(), color.Green(), color.Blue()}};
    pen.setWidth(width);
    pen.setCapStyle(width > 1 ? Qt::RoundCap : Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    const gdi::DashPattern* const pattern = gdi::FindDashPattern(static_cast<int>(style.lineStyle));
    if (width == 1 && pattern != nullptr)
        pen.setDashPattern({pattern->Lengths.begin(), pattern->Lengths.end()});
    return pen;
}

} // namespace styleatlas
