#include "PlotLayout.h"

#include "Commands.h"
#include "Texts.h"

#include <QString>

#include <algorithm>
#include <optional>
#include <span>
#include <string>

namespace atlashost
{
namespace
{

constexpr int Margin = 12; // around the picture, and between panels
constexpr int Padding = 6; // between the parts of a panel

constexpr int GoodPanelHeight = 120; // lower only if there is no room for more columns
constexpr int MinPanelHeight = 90;
constexpr int MinPanelWidth = 400;

constexpr int SampleWidth = 44;
constexpr int LegendRow = 18;
constexpr int LegendShare = 3;         // at most one part in so many of a panel's width
constexpr int MinWidthForLegend = 260; // narrower panels have none
constexpr int ValueStep = 28;          // at least so many pixels for a step of the values

constexpr int GoodWidth = 1200;
constexpr int GoodRow = 210;
constexpr std::size_t PanelsOfOneColumn = 6;
constexpr std::size_t PanelsOfTwoColumns = 16;

struct Grid {
    int columns = 1;
    int rows = 1;
};

int CeilDiv(int count, int divisor)
{
    return (count + divisor - 1) / divisor;
}

// The fewest columns that make panels high enough.
Grid GridFor(int panels, QSize size)
{
    const int maxColumns = std::max(1, size.width() / MinPanelWidth);
    for (const int height : {GoodPanelHeight, MinPanelHeight}) {
        const int rows = std::max(1, size.height() / height);
        if (const int columns = CeilDiv(panels, rows); columns <= maxColumns)
            return {columns, CeilDiv(panels, columns)};
    }
    return {maxColumns, std::max(1, std::min(size.height() / MinPanelHeight, CeilDiv(panels, maxColumns)))};
}

int WidthOf(const QFontMetrics& metrics, const std::string& text)
{
    return metrics.horizontalAdvance(QString::fromStdString(text));
}

class LayoutMaker
{
public:
    LayoutMaker(const Plot& plot, const PlotScope& scope, QSize size, const QFontMetrics& metrics)
        : m_plot{plot}, m_scope{scope}, m_size{size}, m_metrics{metrics}, m_lineHeight{
                                                                              std::max(8, metrics.height())}
    {
    }

    PlotLayout Make()
    {
        const int count = static_cast<int>(m_plot.panels.size());
        QSize room = m_size - QSize{Margin, Margin};
        Grid grid = GridFor(count, room);
        PlotLayout layout;
        if (grid.columns * grid.rows < count) {
            room.rheight() -= m_lineHeight;
            grid = GridFor(count, room);
            layout.footer = {Margin, m_size.height() - Margin / 2 - m_lineHeight, room.width() - Margin,
                             m_lineHeight};
        }
        const int shown = std::min(count, grid.columns * grid.rows);
        layout.missingPanels = static_cast<std::size_t>(count - shown);
        m_cell = {room.width() / grid.columns - Margin, room.height() / grid.rows - Margin};
        MeasureParts(shown);
        for (int i = 0; i < shown; ++i) {
            const QPoint corner{Margin + i % grid.columns * (m_cell.width() + Margin),
                                Margin + i / grid.columns * (m_cell.height() + Margin)};
            layout.panels.push_back(PanelAt(corner, static_cast<std::size_t>(i)));
        }
        return layout;
    }

private:
    int FrameHeight() const
    {
        return std::max(1, m_cell.height() - 2 * m_lineHeight - 2 * Padding - TickLength);
    }

    // Each part is as wide as the widest of all panels. A zoom makes the room for labels no narrower, which
    // would move the frames.
    void MeasureParts(int shown)
    {
        int legendWidth = 0;
        for (const Panel& panel : std::span{m_plot.panels}.first(static_cast<std::size_t>(shown))) {
            const int maxSteps = FrameHeight() / ValueStep;
            const Axis all = ValueAxis(panel.values, maxSteps);
            const std::optional<Range> zoom = m_scope.ZoomOf(m_values.size()).values;
            m_values.push_back({all.range, zoom ? ExactValueAxis(*zoom, maxSteps) : all});
            for (const Axis& axis : {all, m_values.back().shown}) {
                for (const Tick& tick : axis.ticks)
                    m_labelWidth = std::max(m_labelWidth, WidthOf(m_metrics, tick.label));
            }
            if (!panel.unit.empty())
                m_unitWidth = m_lineHeight + Padding / 2;
            for (const Curve& curve : panel.curves)
                legendWidth = std::max(legendWidth, SampleWidth + WidthOf(m_metrics, curve.fileName));
            const std::string more = MoreFiles(panel.curves.size());
            legendWidth = std::max(legendWidth, WidthOf(m_metrics, more));
        }
        if (m_cell.width() >= MinWidthForLegend)
            m_legendWidth = std::min(legendWidth + 2 * Padding, m_cell.width() / LegendShare);
    }

    PanelLayout PanelAt(QPoint corner, std::size_t index)
    {
        const Panel& panel = m_plot.panels[index];
        PanelLayout layout;
        layout.all = {corner, m_cell};
        const int left = m_unitWidth + m_labelWidth + Padding + TickLength;
        const int legendGap = m_legendWidth > 0 ? 2 * Padding : Padding;
        layout.title = {corner.x() + left, corner.y(), m_cell.width() - left, m_lineHeight};
        layout.frame = {corner.x() + left, corner.y() + m_lineHeight + Padding,
                        std::max(2, m_cell.width() - left - m_legendWidth - legendGap), FrameHeight()};
        layout.unit = {corner.x(), layout.frame.top(), m_lineHeight, layout.frame.height()};
        layout.timeLabels = {corner.x(), layout.frame.bottom() + TickLength + Padding / 2, m_cell.width(),
                             m_lineHeight};
        layout.values = m_values[index].shown;
        layout.allValues = m_values[index].all;
        layout.allTimes = panel.times;
        layout.times = TimeAxis(m_scope.ZoomOf(index).times.value_or(panel.times), panel.timeKind,
                                layout.frame.width(), std::max(1, m_metrics.horizontalAdvance(u'0')));
        if (m_legendWidth > 0)
            PlaceLegend(layout, static_cast<int>(panel.curves.size()));
        return layout;
    }

    // Beside the frame, and beside the title too if it needs the room.
    void PlaceLegend(PanelLayout& layout, int curves) const
    {
        const int rowHeight = std::max(LegendRow, m_lineHeight);
        int top = layout.frame.top();
        if (top + curves * rowHeight > layout.all.bottom()) {
            top = layout.all.top();
            layout.title.setRight(layout.frame.right());
        }
        const int rows = std::max(1, (layout.all.bottom() + 1 - top) / rowHeight);
        const int shown = curves <= rows ? curves : rows - 1;
        const auto rowAt = [&](int i) {
            return QRect{layout.all.right() + 1 - m_legendWidth, top + i * rowHeight, m_legendWidth,
                         rowHeight};
        };
        for (int i = 0; i < shown; ++i)
            layout.legend.push_back(rowAt(i));
        if (shown < curves)
            layout.moreFiles = rowAt(shown);
    }

    struct Values {
        Range all;
        Axis shown;
    };

    const Plot& m_plot;
    const PlotScope& m_scope;
    const QSize m_size;
    const QFontMetrics& m_metrics;
    const int m_lineHeight;
    QSize m_cell;
    std::vector<Values> m_values; // of each panel
    int m_labelWidth = 0;
    int m_unitWidth = 0;
    int m_legendWidth = 0;
};

} // namespace

QRect LegendSample(QRect entry)
{
    return {entry.left(), entry.top(), SampleWidth, entry.height()};
}

QRect LegendName(QRect entry)
{
    return entry.adjusted(SampleWidth + Padding, 0, 0, 0);
}

std::string MoreFiles(std::size_t count)
{
    return Text("and %1 more", {std::to_string(count)});
}

PlotLayout LayOut(const Plot& plot, const PlotScope& scope, QSize size, const QFontMetrics& metrics)
{
    return LayoutMaker{plot, scope, size, metrics}.Make();
}

QSize GoodSize(std::size_t panels)
{
    const std::size_t columns = panels <= PanelsOfOneColumn ? 1 : panels <= PanelsOfTwoColumns ? 2 : 3;
    const auto rows = static_cast<int>(std::min<std::size_t>((panels + columns - 1) / columns, MaxSide));
    return {GoodWidth, std::min(Margin + rows * GoodRow, MaxSide)};
}

} // namespace atlashost
