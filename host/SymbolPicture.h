// SymbolPicture.h: the picture of a symbol, pixel by pixel.
#pragma once

#include "StyleWords.h"

#include <QColor>
#include <QImage>
#include <QPoint>

#include <cstdint>

namespace atlashost
{

struct SymbolPicture {
    QImage image;  // transparent where the symbol paints nothing; null for a style without a symbol
    QPoint centre; // the pixel of the image that stands where the reading is
};

// Sizes are in pixels. An odd size gives the picture of the even one below. One of less than 2 gives no
// picture, one of more than 256 that of 256.
SymbolPicture MakeSymbolPicture(const CurveStyle& style);

// From the style atlas's form, red in the lowest byte.
QColor ToQColor(std::uint32_t color);

} // namespace atlashost
