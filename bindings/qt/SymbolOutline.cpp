#include "SymbolOutline.h"

#include <model/SymbolFigure.h>
#include <styleatlas-qt.h>

#include <QPainterPath>

#include <utility>

namespace styleatlas::qt
{
namespace
{

// Draws figures around the origin of a painter, each as one path with its outline and its inside.
class PathCanvas
{
public:
    PathCanvas(QPainter& painter, QColor ink) : m_painter{painter}, m_ink{ink}
    {
        m_painter.setPen(QPen{ink, 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin});
    }

    void MoveTo(int x, int y)
    {
        Finish();
        m_path.moveTo(x, y);
    }
    void LineTo(int x, int y) { m_path.lineTo(x, y); }
    void CloseFigure() { m_path.closeSubpath(); }
    void Square(int half)
    {
        Finish();
        m_inside = Qt::white;
        m_path.addRect(QRectF{-half + HalfPen, -half + HalfPen, 2 * half - 1.0, 2 * half - 1.0});
    }
    void Disc(int radius, k_SymbolInterior interior)
    {
        Finish();
        if (radius == 0)
            return;
        m_inside = interior == symbolPaper ? QBrush{Qt::white} : QBrush{m_ink};
        m_path.addEllipse(QPointF{}, radius - HalfPen, radius - HalfPen);
    }
    void Flood(int /*x*/, int /*y*/) { m_inside = m_ink; }

    // Draws what is still to be drawn.
    void Finish()
    {
        m_painter.setBrush(std::exchange(m_inside, Qt::NoBrush));
        m_painter.drawPath(std::exchange(m_path, {}));
    }

private:
    static constexpr double HalfPen = 0.5; // the outline lies inside of a box

    QPainter& m_painter;
    QColor m_ink;
    QBrush m_inside;
    QPainterPath m_path;
};

} // namespace

void DrawSymbolOutline(QPainter& painter, const Style& style)
{
    const Color color = style.symbolColor;
    PathCanvas canvas{painter, QColor{color.Red(), color.Green(), color.Blue()}};
    k_SymbolFigure{canvas, static_cast<int>(style.symbolFill), SymbolSize(style)}.Draw(
        static_cast<int>(style.symbolShape));
    canvas.Finish();
}

} // namespace styleatlas::qt
