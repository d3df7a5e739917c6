#include "StylePeer.h"

#include <QtConvert.h>
#include <initializer_list>

namespace
{

void PaintLine(QPainter& painter, const k_LineDef& style, const QRect& cell, int y)
{
    static constexpr Qt::PenStyle styles[] = {Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                              Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen};
    painter.setPen(QPen(Qt::white, style.LineWidth));
    painter.drawLine(cell.left(), y, cell.right(), y);
    const bool isWide = style.LineWidth > 1;
    painter.setPen(QPen(gdi::ToQColor(style.LineColor), style.LineWidth,
                        isWide ? Qt::SolidLine : styles[style.LineStyle],
                        isWide ? Qt::RoundCap : Qt::SquareCap));
    painter.drawLine(cell.left(), y, cell.right(), y);
}

void PaintSymbol(QPainter& painter, const k_LineDef& style, QPoint c)
{
    const int h = style.SymbolSize / 2;
    const int q = style.SymbolSize / 4;
    const QColor color = gdi::ToQColor(style.SymbolColor);
    const bool isFilled = style.SymbolFill == 0;
    painter.setPen(color);
    const auto paintDot = [&] {
        painter.setBrush(color);
        painter.drawEllipse(c.x() - q, c.y() - q, 2 * q - 1, 2 * q - 1);
    };
    const auto paintPolygon = [&](std::initializer_list<QPoint> points) {
        painter.setBrush(isFilled ? QBrush(color) : QBrush(Qt::NoBrush));
        painter.drawPolygon(std::data(points), static_cast<int>(points.size()));
    };
    const int x = c.x();
    const int y = c.y();
    const QLine plus[] = {{x - h, y, x + h - 1, y}, {x, y - h, x, y + h - 1}};
    const QLine cross[] = {{x - h, y - h, x + h - 1, y + h - 1}, {x + h, y - h, x - h + 1, y + h - 1}};
    switch (style.SymbolShape) {
    case 0:
        return;
    case 1:
        return painter.drawLines(cross, 2);
    case 2:
        paintPolygon({{x - h, y + h}, {x + h, y + h}, {x, y - h}});
        break;
    case 3:
        paintPolygon({{x - h, y - h}, {x, y + h}, {x + h, y - h}});
        break;
    case 4:
        painter.setBrush(isFilled ? color : QColor(Qt::white));
        painter.drawRect(x - h, y - h, 2 * h - 1, 2 * h - 1);
        break;
    case 5:
        painter.drawLines(plus, 2);
        break;
    case 6:
        painter.drawLines(plus, 2);
        painter.drawLines(cross, 2);
        break;
    case 7:
        paintPolygon({{x, y - h}, {x - h, y - q}, {x, y + h}, {x + h, y - q}});
        break;
    case 8:
        painter.setBrush(isFilled ? color : QColor(Qt::white));
        painter.drawEllipse(x - h, y - h, 2 * h - 1, 2 * h - 1);
        break;
    default:
        return paintDot();
    }
    if (style.SymbolFill == 2)
        paintDot();
}

} // namespace

namespace bench
{

void PaintStyleByPainter(QPainter& painter, const k_LineDef& style, const QRect& cell)
{
    const QPoint centre(cell.left() + cell.width() / 2, cell.top() + cell.height() / 2);
    PaintLine(painter, style, cell, centre.y());
    PaintSymbol(painter, style, centre);
}

} // namespace bench
