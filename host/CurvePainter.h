// Draws curves in the style that the style atlas gives.
#pragma once

#include "PlotData.h"

#include <QPainter>
#include <QPoint>
#include <QRect>

#include <span>
#include <vector>

namespace atlashost
{

// Draws in whole pixels. The painter must outlive it; it has no antialiasing, and gets another pen.
class CurvePainter
{
public:
    enum class Symbols { OfAll, OfSome };

    CurvePainter(QPainter& painter, const styleatlas::Style& style);

    // Draws the curve into the frame, whose edges are the ends of the ranges. The line is interrupted at
    // gaps; a lone reading between gaps is a dot if it has no symbol. Where readings are too close for their
    // symbols, only some have one (Symbols::OfSome), unless there is no line to show the others.
    Symbols DrawCurve(const Curve& curve, QRect frame, Range times, Range values);

private:
    void DrawLine(std::span<const Reading> readings);
    void DrawSymbols(std::span<const Reading> readings, int minDistance);
    void DrawRun(std::vector<QPoint> points);
    int SymbolDistance(const Curve& curve) const;
    QPoint PointOf(const Reading& reading) const;

    QPainter& m_painter;
    styleatlas::Style m_style;
    int m_symbolSize;
    QRect m_frame;
    Range m_times;
    Range m_values;
};

} // namespace atlashost
