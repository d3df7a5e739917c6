#include "SymbolOutline.h"
#include "SymbolPicture.h"

#include <styleatlas-qt.h>

#include <QPaintEngine>

#include <algorithm>

namespace styleatlas
{
namespace
{

using qt::SymbolPicture;

bool HasPixels(const QPainter& painter)
{
    return painter.paintEngine()->type() == QPaintEngine::Raster &&
           painter.deviceTransform().type() <= QTransform::TxTranslate;
}

bool LookAlike(const Style& one, const Style& other)
{
    return one.symbolShape == other.symbolShape && one.symbolSize == other.symbolSize &&
           one.symbolFill == other.symbolFill && one.symbolColor.value == other.symbolColor.value;
}

// A curve draws the same symbol for each of its readings.
const SymbolPicture& PictureOf(const Style& style)
{
    thread_local Style last;
    thread_local SymbolPicture picture;
    if (picture.image.isNull() || !LookAlike(style, last)) {
        picture = qt::MakeSymbolPicture(style);
        last = style;
    }
    return picture;
}

} // namespace

int SymbolSize(const Style& style) noexcept
{
    const bool isKnown = style.symbolShape > SymbolShape::None && style.symbolShape <= SymbolShape::Point;
    return isKnown ? std::clamp<int>(style.symbolSize, 0, qt::MaxSize) / 2 * 2 : 0;
}

void DrawSymbol(QPainter& painter, QPointF point, const Style& style)
{
    if (!painter.isActive() || SymbolSize(style) == 0)
        return;
    if (HasPixels(painter)) {
        const auto [image, centre] = PictureOf(style);
        const QTransform& toDevice = painter.deviceTransform();
        const QPointF corner = toDevice.map(point).toPoint() - centre;
        painter.drawImage(toDevice.inverted().map(corner), image);
        return;
    }
    painter.save();
    painter.translate(point);
    painter.setRenderHint(QPainter::Antialiasing);
    qt::DrawSymbolOutline(painter, style);
    painter.restore();
}

} // namespace styleatlas
