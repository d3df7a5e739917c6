#include "PlotPainter.h"

#include "CurvePainter.h"
#include "Downsampling.h"
#include "WindowText.h"

#include "styleatlas-qt.h"

#include <QColor>
#include <QFont>
#include <QFontMetrics>
#include <QString>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace atlashost
{
namespace
{

constexpr QRgb Paper = qRgb(255, 255, 255);
constexpr QRgb TextColor = qRgb(0x30, 0x34, 0x3A);
constexpr QRgb NoteColor = qRgb(0x7A, 0x80, 0x88);
constexpr QRgb FrameColor = qRgb(0x9A, 0xA0, 0xA8);
constexpr QRgb GridColor = qRgb(0xE8, 0xEA, 0xED);

constexpr int FontHeight = 12; // pixels
constexpr int LabelGap = 6;

// A pale colour has so many parts of the paper's colour, and one of its own.
constexpr int PartsOfPaper = 4;

styleatlas::Color Pale(styleatlas::Color color)
{
    const auto mix = [](std::uint32_t light, int paper) {
        return (light + PartsOfPaper * static_cast<std::uint32_t>(paper)) / (1 + PartsOfPaper);
    };
    return {mix(color.Red(), qRed(Paper)) | mix(color.Green(), qGreen(Paper)) << 8 |
            mix(color.Blue(), qBlue(Paper)) << 16};
}

styleatlas::Style Pale(styleatlas::Style style)
{
    style.symbolColor = Pale(style.symbolColor);
    style.lineColor = Pale(style.lineColor);
    return style;
}

class PanelPainter
{
public:
    PanelPainter(QPainter& painter, const Panel& panel, const PanelLayout& layout, std::vector<bool> pale)
        : m_painter{painter}, m_panel{panel}, m_layout{layout}, m_frame{layout.frame}, m_isPale{
                                                                                           std::move(pale)}
    {
    }

    void Draw()
    {
        m_painter.save();
        m_painter.setClipRect(m_layout.all);
        DrawTitle();
        DrawUnit();
        DrawValueAxis();
        DrawTimeAxis();
        m_painter.setPen(QColor{FrameColor});
        m_painter.drawRect(m_frame.adjusted(-1, -1, 0, 0));
        DrawCurves();
        DrawLegend();
        m_painter.restore();
    }

private:
    void Write(QRect rect, int alignment, const std::string& text, Qt::TextElideMode cut = Qt::ElideRight)
    {
        m_painter.setPen(QColor{TextColor});
        m_painter.drawText(
            rect, alignment | Qt::TextSingleLine,
            m_painter.fontMetrics().elidedText(QString::fromStdString(text), cut, rect.width()));
    }

    void DrawTitle()
    {
        QFont bold = m_painter.font();
        bold.setBold(true);
        m_painter.setFont(bold);
        Write(m_layout.title, Qt::AlignLeft | Qt::AlignVCenter, m_panel.title);
        const QString title = QString::fromStdString(m_panel.title);
        m_endOfTitle = m_layout.title.left() + m_painter.fontMetrics().horizontalAdvance(title);
        m_painter.setFont(PlotFont());
    }

    // Omitted if the title leaves no room.
    void DrawNote(const QString& note)
    {
        QRect room = m_layout.title;
        room.setLeft(m_endOfTitle + 2 * LabelGap);
        room.setRight(m_frame.right());
        m_painter.setPen(QColor{NoteColor});
        if (room.width() > m_painter.fontMetrics().horizontalAdvance(note))
            m_painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, note);
    }

    void DrawUnit()
    {
        const QRect unit = m_layout.unit;
        m_painter.save();
        m_painter.translate(unit.left(), unit.bottom() + 1);
        m_painter.rotate(-90);
        Write({0, 0, unit.height(), unit.width()}, Qt::AlignCenter, m_panel.unit);
        m_painter.restore();
    }

    void DrawValueAxis()
    {
        for (const Tick& tick : m_layout.values.ticks) {
            const QPointF point{0, m_layout.Map().Y(tick.value)};
            const int y = m_layout.Map().PixelAt(point).y();
            m_painter.setPen(QColor{GridColor});
            m_painter.drawLine(m_frame.left(), y, m_frame.right(), y);
            m_painter.setPen(QColor{FrameColor});
            m_painter.drawLine(m_frame.left() - TickLength, y, m_frame.left() - 1, y);
            const int height = m_painter.fontMetrics().height();
            Write({m_layout.all.left(), y - height / 2, m_frame.left() - LabelGap - m_layout.all.left(),
                   height},
                  Qt::AlignRight | Qt::AlignVCenter, tick.label);
        }
    }

    void DrawTimeAxis()
    {
        const QRect room = m_layout.timeLabels;
        int end = std::numeric_limits<int>::min();
        for (const Tick& tick : m_layout.times.ticks) {
            const int x = m_frame.left() + ColumnOf(tick.value, m_layout.times.range, m_frame.width());
            m_painter.setPen(QColor{GridColor});
            m_painter.drawLine(x, m_frame.top(), x, m_frame.bottom());
            m_painter.setPen(QColor{FrameColor});
            m_painter.drawLine(x, m_frame.bottom() + 1, x, m_frame.bottom() + TickLength);
            const QString label = QString::fromStdString(tick.label);
            const int width = m_painter.fontMetrics().horizontalAdvance(label);
            const int left =
                std::clamp(x - width / 2, room.left(), std::max(room.left(), room.right() - width));
            if (left <= end)
                continue;
            m_painter.setPen(QColor{TextColor});
            m_painter.drawText(QRect{left, room.top(), width + 1, room.height()}, Qt::AlignLeft, label);
            end = left + width + LabelGap;
        }
        DrawTimeTitle(end);
    }

    // Dates need no title. It goes below the legend if the labels leave room there.
    void DrawTimeTitle(int endOfLabels)
    {
        if (m_panel.timeKind == TimeKind::Date)
            return;
        QRect room = m_layout.timeLabels;
        room.setLeft(std::max(endOfLabels, m_frame.right() + LabelGap) + LabelGap);
        Write(room, Qt::AlignLeft, m_panel.timeTitle);
    }

    void DrawCurves()
    {
        std::vector<CurvePainter> curves;
        int symbolDistance = 0;
        for (std::size_t i = 0; i < m_panel.curves.size(); ++i) {
            curves.emplace_back(m_painter, m_panel.curves[i], StyleOf(i), m_layout.Map());
            symbolDistance = std::max(symbolDistance, curves.back().DistanceOfSparseSymbols());
        }
        m_painter.save();
        if (m_layout.IsZoomed())
            m_painter.setClipRect(m_frame, Qt::IntersectClip);
        for (const bool isPale : {true, false}) { // marked ones above the others
            for (std::size_t i = 0; i < curves.size(); ++i) {
                if (m_isPale[i] == isPale)
                    curves[i].Draw(symbolDistance);
            }
        }
        m_painter.restore();
        if (symbolDistance > 0)
            DrawNote(WindowText("not every reading has its symbol"));
    }

    void DrawLegend()
    {
        for (std::size_t i = 0; i < m_layout.legend.size(); ++i) {
            styleatlas::DrawLegendSample(m_painter, LegendSample(m_layout.legend[i]), StyleOf(i));
            // The ends of names differ more than their beginnings.
            Write(LegendName(m_layout.legend[i]), Qt::AlignLeft | Qt::AlignVCenter,
                  m_panel.curves[i].fileName, Qt::ElideLeft);
        }
        if (!m_layout.moreFiles.isNull())
            Write(m_layout.moreFiles, Qt::AlignLeft | Qt::AlignVCenter,
                  MoreFiles(m_panel.curves.size() - m_layout.legend.size()));
    }

    styleatlas::Style StyleOf(std::size_t curve) const
    {
        const styleatlas::Style& style = m_panel.curves[curve].style;
        return m_isPale[curve] ? Pale(style) : style;
    }

    QPainter& m_painter;
    const Panel& m_panel;
    const PanelLayout& m_layout;
    const QRect m_frame;
    const std::vector<bool> m_isPale; // of each curve
    int m_endOfTitle = 0;
};

} // namespace

QFont PlotFont()
{
    QFont font{"DejaVu Sans"};
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(FontHeight);
    return font;
}

PlotLayout DrawPlot(QPainter& painter, QSize size, const Plot& plot, const PlotScope& scope)
{
    painter.setFont(PlotFont());
    painter.fillRect(QRect{{0, 0}, size}, QColor{Paper});
    PlotLayout layout = LayOut(plot, scope, size, painter.fontMetrics());
    for (std::size_t i = 0; i < layout.panels.size(); ++i) {
        std::vector<bool> isPale;
        for (std::size_t curve = 0; curve < plot.panels[i].curves.size(); ++curve)
            isPale.push_back(scope.IsPale({i, curve}));
        PanelPainter{painter, plot.panels[i], layout.panels[i], std::move(isPale)}.Draw();
    }
    if (layout.missingPanels > 0) {
        painter.setPen(QColor{TextColor});
        painter.drawText(
            layout.footer, Qt::AlignRight,
            WindowText("quantities without room here: %1", QString::number(layout.missingPanels)));
    }
    return layout;
}

} // namespace atlashost
