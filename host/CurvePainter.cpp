#include "CurvePainter.h"

#include "Downsampling.h"

#include "styleatlas-qt.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>

namespace atlashost
{
namespace
{

using styleatlas::LineStyle;

constexpr std::size_t MaxLinePoints = 4;   // in a pixel column
constexpr std::size_t MaxSymbols = 16;     // in a pixel column
constexpr std::size_t FewReadings = 16;    // always have their symbols
constexpr int DistanceOfSparseSymbols = 2; // in sizes of the symbol

} // namespace

CurvePainter::CurvePainter(QPainter& painter, const styleatlas::Style& style)
    : m_painter{painter}, m_style{style}, m_symbolSize{styleatlas::SymbolSize(style)}
{
}

CurvePainter::Symbols CurvePainter::DrawCurve(const Curve& curve, QRect frame, Range times, Range values)
{
    m_frame = frame;
    m_times = times;
    m_values = values;
    m_painter.setPen(styleatlas::LinePen(m_style));
    if (m_style.lineStyle != LineStyle::None)
        DrawLine(Downsampled(curve.readings, times, frame.width(), MaxLinePoints));
    int distance = 0;
    if (m_symbolSize > 0) {
        distance = SymbolDistance(curve);
        DrawSymbols(Downsampled(curve.readings, times, frame.width(), MaxSymbols), distance);
    }
    return distance > 0 ? Symbols::OfSome : Symbols::OfAll;
}

void CurvePainter::DrawLine(std::span<const Reading> readings)
{
    std::vector<QPoint> run;
    for (const Reading& reading : readings) {
        if (IsGap(reading))
            DrawRun(std::exchange(run, {}));
        else
            run.push_back(PointOf(reading));
    }
    DrawRun(std::move(run));
}

void CurvePainter::DrawRun(std::vector<QPoint> points)
{
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (points.size() > 1)
        m_painter.drawPolyline(points.data(), static_cast<int>(points.size()));
    else if (points.size() == 1 && m_symbolSize == 0)
        m_painter.drawPoint(points.front());
}

void CurvePainter::DrawSymbols(std::span<const Reading> readings, int minDistance)
{
    int before = std::numeric_limits<int>::min() / 2;
    for (std::size_t i = 0; i < readings.size(); ++i) {
        if (IsGap(readings[i]))
            continue;
        const bool isLone =
            (i == 0 || IsGap(readings[i - 1])) && (i + 1 == readings.size() || IsGap(readings[i + 1]));
        const QPoint point = PointOf(readings[i]);
        if (!isLone && point.x() - before < minDistance)
            continue;
        before = point.x();
        styleatlas::DrawSymbol(m_painter, point, m_style);
    }
}

// Symbols that would cover each other by more than half are drawn two sizes apart.
int CurvePainter::SymbolDistance(const Curve& curve) const
{
    if (curve.readingCount <= FewReadings || m_style.lineStyle == LineStyle::None)
        return 0;
    const int size = m_symbolSize;
    const int left = ColumnOf(curve.readings.front().time, m_times, m_frame.width());
    const int right = ColumnOf(curve.readings.back().time, m_times, m_frame.width());
    const double spacing = (right - left + size) / static_cast<double>(curve.readingCount);
    const bool isCrowded = 2 * spacing < size;
    return isCrowded ? DistanceOfSparseSymbols * size : 0;
}

QPoint CurvePainter::PointOf(const Reading& reading) const
{
    const double share = std::clamp(m_values.ShareOf(reading.value), 0.0, 1.0);
    return {m_frame.left() + ColumnOf(reading.time, m_times, m_frame.width()),
            m_frame.bottom() - static_cast<int>(std::lround(share * (m_frame.height() - 1)))};
}

} // namespace atlashost
