// Readings and the pixels of a frame.
#pragma once

#include "PlotData.h"

#include <QPoint>
#include <QPointF>
#include <QRect>

#include <algorithm>
#include <cmath>

namespace atlashost
{

// The middles of the frame's outermost pixels are the ends of the ranges. Readings outside of the ranges have
// points outside of the frame.
class FrameMap
{
public:
    FrameMap(QRect frame, Range times, Range values) : m_frame{frame}, m_times{times}, m_values{values} {}

    QRect Frame() const { return m_frame; }
    QPointF PointOf(const Reading& reading) const { return {X(reading.time), Y(reading.value)}; }
    double X(double time) const { return m_frame.left() + m_times.ShareOf(time) * Width(); }
    double Y(double value) const { return m_frame.bottom() - m_values.ShareOf(value) * Height(); }
    // Rounds from the corner of the axes.
    QPoint PixelAt(QPointF point) const
    {
        return {static_cast<int>(std::lround(point.x())),
                m_frame.bottom() - static_cast<int>(std::lround(m_frame.bottom() - point.y()))};
    }
    double TimeAt(double x) const { return m_times.At((x - m_frame.left()) / Width()); }
    double ValueAt(double y) const { return m_values.At((m_frame.bottom() - y) / Height()); }
    double TimeOfPixel() const { return (m_times.high - m_times.low) / Width(); }
    double ValueOfPixel() const { return (m_values.high - m_values.low) / Height(); }

private:
    double Width() const { return std::max(1, m_frame.width() - 1); }
    double Height() const { return std::max(1, m_frame.height() - 1); }

    QRect m_frame;
    Range m_times;
    Range m_values;
};

} // namespace atlashost
