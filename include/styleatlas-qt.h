/** @file
 * Paints styles with Qt. On a raster device without scaling, the pixels of a symbol are those of the style
 * editor; on any other device (PDF, SVG, OpenGL, a scaled screen) it is made of lines and areas.
 *
 *     if (const auto style = styleatlas::StyleOf(column, key)) {
 *         painter.setPen(styleatlas::LinePen(*style));
 *         painter.drawPolyline(points);
 *         for (const QPointF& point : points)
 *             styleatlas::DrawSymbol(painter, point, *style);
 *     }
 *
 * Sizes and widths are those of the style, in the painter's logical units. A size above 256 is drawn as 256,
 * and so is a width. Everything here may be called wherever Qt allows painting. Painters stay the caller's,
 * and have to be active. Link StyleAtlas::Qt.
 */
#ifndef STYLEATLAS_QT_H
#define STYLEATLAS_QT_H

#include "styleatlas.hpp"

#include <QIcon>
#include <QPainter>
#include <QPen>

namespace styleatlas
{

/// The pen for the line of a style. A pen wider than 1 is solid, and so is one of an unknown line style. A
/// line of width 1 has the editor's pixels where the painter has no antialiasing.
/// @param style the style; any numbers
/// @returns the pen; Qt::NoPen for a style without a line
[[nodiscard]] QPen LinePen(const Style& style);

/// The width and height of a symbol, for what is laid out around it.
/// @param style the style; any numbers
/// @returns logical units, 0 to 256; 0 for a style without a symbol
[[nodiscard]] int SymbolSize(const Style& style) noexcept;

/// Draws the symbol of a style. The inside of an empty square or circle is white.
/// @param painter keeps its state
/// @param point the middle of the symbol, in logical units
/// @param style the style; any numbers
void DrawSymbol(QPainter& painter, QPointF point, const Style& style);

/// Draws the line through the middle of a rectangle from edge to edge and the symbol over it, cut off at the
/// edges.
/// @param painter keeps its state
/// @param rect in logical units
/// @param style the style; any numbers
void DrawLegendSample(QPainter& painter, const QRect& rect, const Style& style);

/// The legend sample as an icon, sharp at every size and scale, on a transparent ground.
/// @param style the style; any numbers
/// @returns the icon, which keeps the style
[[nodiscard]] QIcon LegendIcon(const Style& style);

} // namespace styleatlas

#endif
