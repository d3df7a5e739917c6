#include "CurvePainter.h"

#include "Downsampling.h"

#include "styleatlas-qt.h"

#include <QLineF>
#include <QPaintEngine>
#include <QRectF>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace atlashost
{
namespace
{

constexpr std::size_t MaxLinePoints = 4; // in a pixel column
constexpr std::size_t MaxSymbols = 16;   // in a pixel column
constexpr std::size_t FewReadings = 16;  // have room for their symbols
constexpr int SizesBetweenSymbols = 2;   // of sparse ones
constexpr double ColumnsOfVectors = 4;   // in a pixel, on a device without pixels
constexpr double FarAway = 1000;         // pixels: the slope of a line from there is exact to a pixel

bool IsRaster(const QPainter& painter)
{
    return painter.paintEngine()->type() == QPaintEngine::Raster;
}

bool HasPixels(const QPainter& painter)
{
    return IsRaster(painter) && painter.deviceTransform().type() <= QTransform::TxTranslate;
}

// The part of the line that is within the rectangle.
std::optional<QLineF> Clipped(const QLineF& line, const QRectF& rect)
{
    double from = 0;
    double to = 1;
    const auto clip = [&](double start, double delta, double low, double high) {
        if (delta == 0)
            return start >= low && start <= high;
        const auto [enter, leave] = std::minmax({(low - start) / delta, (high - start) / delta});
        from = std::max(from, enter);
        to = std::min(to, leave);
        return from <= to;
    };
    if (clip(line.x1(), line.dx(), rect.left(), rect.right()) &&
        clip(line.y1(), line.dy(), rect.top(), rect.bottom()))
        return QLineF{from > 0 ? line.pointAt(from) : line.p1(), to < 1 ? line.pointAt(to) : line.p2()};
    return std::nullopt;
}

} // namespace

CurvePainter::CurvePainter(QPainter& painter, const Curve& curve, const styleatlas::Style& style,
                           const FrameMap& map)
    : m_painter{painter}, m_style{style}, m_symbolSize{styleatlas::SymbolSize(style)}, m_map{map},
      m_isInPixels{HasPixels(painter)}
{
    const QRect frame = map.Frame();
    m_times = {map.TimeAt(frame.left() - m_symbolSize), map.TimeAt(frame.right() + m_symbolSize)};
    const double scale = IsRaster(painter) ? painter.deviceTransform().m11() : ColumnsOfVectors;
    m_columns = static_cast<int>((frame.width() + 2 * m_symbolSize) * scale);
    m_readings = Downsampled(ReadingsAround(curve.readings, m_times), m_times, m_columns, MaxSymbols);
}

// Symbols are too close if they would cover each other by more than half.
int CurvePainter::DistanceOfSparseSymbols() const
{
    if (m_symbolSize == 0 || !HasLine())
        return 0;
    double first = std::numeric_limits<double>::max();
    double last = std::numeric_limits<double>::lowest();
    std::size_t count = 0;
    for (const Reading& reading : m_readings) {
        if (IsGap(reading) || reading.time < m_times.low || reading.time > m_times.high)
            continue;
        first = std::min(first, reading.time);
        last = reading.time;
        ++count;
    }
    if (count <= FewReadings)
        return 0;
    const double spacing = (m_map.X(last) - m_map.X(first) + m_symbolSize) / static_cast<double>(count);
    return 2 * spacing < m_symbolSize ? SizesBetweenSymbols * m_symbolSize : 0;
}

void CurvePainter::Draw(int symbolDistance)
{
    m_painter.setRenderHint(QPainter::Antialiasing, !m_isInPixels);
    m_painter.setPen(styleatlas::LinePen(m_style));
    if (HasLine())
        DrawLine();
    if (m_symbolSize > 0)
        DrawSymbols(HasLine() ? symbolDistance : 0);
}

void CurvePainter::DrawLine()
{
    std::vector<QPointF> run;
    for (const Reading& reading : Downsampled(m_readings, m_times, m_columns, MaxLinePoints)) {
        if (IsGap(reading)) {
            DrawRun(run);
            run.clear();
        } else {
            run.push_back(m_map.PointOf(reading));
        }
    }
    DrawRun(run);
}

void CurvePainter::DrawRun(std::span<const QPointF> points)
{
    const QRectF near = QRectF{m_map.Frame()}.adjusted(-FarAway, -FarAway, FarAway, FarAway);
    if (points.size() == 1 && m_symbolSize == 0 && near.contains(points.front()))
        m_painter.drawPoint(Placed(points.front()));
    QPolygonF line;
    const auto draw = [&] {
        if (line.size() > 1)
            m_painter.drawPolyline(line);
        line.clear();
    };
    const auto add = [&](QPointF point) {
        if (line.empty() || line.back() != point)
            line.append(point);
    };
    for (std::size_t i = 1; i < points.size(); ++i) {
        const std::optional<QLineF> part = Clipped({points[i - 1], points[i]}, near);
        if (!part || part->p1() != points[i - 1])
            draw();
        if (part) {
            add(Placed(part->p1()));
            add(Placed(part->p2()));
        }
    }
    draw();
}

QPointF CurvePainter::Placed(QPointF point) const
{
    return m_isInPixels ? QPointF{m_map.PixelAt(point)} : point;
}

// The stretches are counted from the time 0, so that the symbols keep to their readings when the range moves,
// and curves with the same times have them at the same ones.
void CurvePainter::DrawSymbols(int distance)
{
    const QRectF seen =
        QRectF{m_map.Frame()}.adjusted(-m_symbolSize, -m_symbolSize, m_symbolSize, m_symbolSize);
    const double length = distance * m_map.TimeOfPixel();
    double stretchBefore = std::nan("");
    double timeBefore = -std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < m_readings.size(); ++i) {
        if (IsGap(m_readings[i]))
            continue;
        const bool isLone =
            (i == 0 || IsGap(m_readings[i - 1])) && (i + 1 == m_readings.size() || IsGap(m_readings[i + 1]));
        if (distance > 0 && !isLone) {
            const double time = m_readings[i].time;
            const double stretch = std::floor(time / length);
            if (stretch == stretchBefore || time - timeBefore < length / 2)
                continue;
            stretchBefore = stretch;
            timeBefore = time;
        }
        const QPointF point = m_map.PointOf(m_readings[i]);
        if (seen.contains(point))
            styleatlas::DrawSymbol(m_painter, Placed(point), m_style);
    }
}

} // namespace atlashost
