// Draws curves in the style that the style atlas gives.
#pragma once

#include "FrameMap.h"
#include "PlotData.h"

#include <QPainter>
#include <QPointF>
#include <QPolygonF>

#include <span>
#include <vector>

namespace atlashost
{

// Draws one curve into a frame: in whole pixels where a pixel of the device is one of the painter, else
// smoothly. The painter must outlive it.
class CurvePainter
{
public:
    CurvePainter(QPainter& painter, const Curve& curve, const styleatlas::Style& style, const FrameMap& map);

    // In pixels, if the readings in the frame are too close for their symbols; 0 if all can have theirs, or
    // if there is no line to show the others.
    int DistanceOfSparseSymbols() const;

    // Draws the line, interrupted at gaps, and one symbol in each stretch of so many pixels (all if it is 0,
    // or if there is no line). A lone reading between gaps always has its symbol, or is a dot.
    void Draw(int symbolDistance);

private:
    void DrawLine();
    void DrawRun(std::span<const QPointF> points);
    void DrawSymbols(int distance);
    QPointF Placed(QPointF point) const;
    bool HasLine() const { return m_style.lineStyle != styleatlas::LineStyle::None; }

    QPainter& m_painter;
    const styleatlas::Style m_style;
    const int m_symbolSize;
    const FrameMap m_map;
    const bool m_isInPixels;
    Range m_times;                   // of the frame and a margin for symbols
    int m_columns = 0;               // of the device in these times
    std::vector<Reading> m_readings; // as many as can be seen
};

} // namespace atlashost
