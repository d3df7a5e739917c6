// The symbol of a style as an image, pixel by pixel as the style atlas paints it.
#pragma once

#include <styleatlas.hpp>

#include <QImage>
#include <QPoint>

namespace styleatlas::qt
{

struct SymbolPicture {
    QImage image;  // transparent where the symbol paints nothing; null for a style without a symbol
    QPoint centre; // the pixel of the image that belongs on the reading
};

// The size is in pixels. A size below 2 gives no image, one above 256 that of 256. The inside of an empty
// square or circle is white.
SymbolPicture MakeSymbolPicture(const Style& style);

} // namespace styleatlas::qt
