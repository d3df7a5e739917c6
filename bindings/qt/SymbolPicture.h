// The symbol of a style as an image, pixel by pixel as the style atlas paints it.
#pragma once

#include <styleatlas.hpp>

#include <QImage>
#include <QPoint>

namespace styleatlas::qt
{

constexpr int MaxSize = 256; // of symbols, and of widths of lines

struct SymbolPicture {
    QImage image;  // transparent where the symbol paints nothing; null for a style without a symbol
    QPoint centre; // the pixel of the image that belongs on the reading
};

// The size is in pixels. The inside of an empty square or circle is white.
SymbolPicture MakeSymbolPicture(const Style& style);

} // namespace styleatlas::qt
