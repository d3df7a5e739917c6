// The picture of a plot, down to its pixels.
#include "Downsampling.h"
#include "PlotPainter.h"
#include "PlotView.h"
#include "styleatlas-qt.h"

#include "support/Plots.h"

#include <QPaintEngine>

#include <algorithm>

namespace atlashost
{
namespace
{

// Notes the texts and lines that are drawn on it.
class Notes : public QPaintDevice, public QPaintEngine
{
public:
    explicit Notes(const Plot& plot, QSize size = {900, 700}) : QPaintEngine{AllFeatures}, m_size{size}
    {
        QPainter painter{this};
        Layout = DrawPlot(painter, size, plot);
    }

    QPaintEngine* paintEngine() const override { return const_cast<Notes*>(this); }
    int metric(PaintDeviceMetric which) const override
    {
        return which == PdmWidth    ? m_size.width()
               : which == PdmHeight ? m_size.height()
               : which == PdmDepth  ? 32
                                    : 96;
    }
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {}
    void drawPolygon(const QPoint*, int, PolygonDrawMode) override {}
    void drawPath(const QPainterPath&) override {}
    void drawLines(const QLine* lines, int count) override
    {
        for (; count > 0; ++lines, --count)
            Lines.push_back(painter()->transform().map(*lines));
    }
    void drawTextItem(const QPointF& baseline, const QTextItem& item) override
    {
        const QPointF end = baseline + QPointF{item.width(), 0};
        const QLineF place = painter()->transform().map(QLineF{baseline, end});
        const bool isWhole = !painter()->hasClipping() || painter()->clipBoundingRect().contains(baseline);
        Texts.push_back({item.text(), place, item.font().bold(), isWhole});
    }
    Type type() const override { return User; }

    struct Drawn {
        QString text;
        QLineF baseline;
        bool isBold;
        bool isWhole; // not cut off
    };
    std::vector<Drawn> Texts;
    QList<QLine> Lines;
    PlotLayout Layout;

    // The text, or an empty one if it isn't drawn within the rectangle.
    Drawn In(const QRect& rect, const QString& text) const
    {
        const auto found = std::ranges::find_if(Texts, [&](const Drawn& drawn) {
            return drawn.text == text && rect.contains(drawn.baseline.center().toPoint());
        });
        return found != Texts.end() ? *found : Drawn{};
    }

private:
    QSize m_size;
};

TEST_F(Plots, LabelTheirParts)
{
    Plot plot{{Numbers, Numbers}, 0};
    plot.panels[0].curves = {CurveOf(3)};
    plot.panels[1].timeKind = TimeKind::Date;
    plot.panels[1].curves = {CurveOf(3000)};
    const Notes notes{plot};
    const QString note = "not every reading has its symbol";
    for (const PanelLayout& part : notes.Layout.panels) {
        const bool isFirst = &part == &notes.Layout.panels.front();
        EXPECT_TRUE(notes.In(part.title, "Title").isBold);
        EXPECT_GT(notes.In(part.unit, "V").baseline.dy(), -100);
        EXPECT_LT(notes.In(part.unit, "V").baseline.dy(), 0) << "from below";
        EXPECT_EQ(notes.In(part.timeLabels, "t").text.isEmpty(), !isFirst) << "dates need no title";
        EXPECT_EQ(notes.In(part.title, note).text.isEmpty(), isFirst);
        for (const Tick& tick : part.values.ticks) {
            const int y = part.frame.bottom() -
                          static_cast<int>(
                              std::lround(part.values.range.ShareOf(tick.value) * (part.frame.height() - 1)));
            EXPECT_TRUE(notes.Lines.contains({part.frame.left() - TickLength, y, part.frame.left() - 1, y}));
            EXPECT_TRUE(notes.Lines.contains({part.frame.left(), y, part.frame.right(), y}));
            const QRect beside{part.unit.right() + 1, y - 12, part.frame.left() - part.unit.right() - 1, 24};
            const QLineF label = notes.In(beside, QString::fromStdString(tick.label)).baseline;
            EXPECT_TRUE(label.x1() > beside.left() && label.x2() < beside.right() - TickLength) << tick.label;
        }
        for (const Tick& tick : part.times.ticks) {
            const int x = part.frame.left() + ColumnOf(tick.value, part.times.range, part.frame.width());
            EXPECT_TRUE(
                notes.Lines.contains({x, part.frame.bottom() + 1, x, part.frame.bottom() + TickLength}));
            EXPECT_TRUE(notes.Lines.contains({x, part.frame.top(), x, part.frame.bottom()}));
        }
    }
    const PanelLayout& first = notes.Layout.panels.front();
    EXPECT_FALSE(notes.In(first.timeLabels, "5").isBold);
    EXPECT_GE(notes.In(first.timeLabels, "t").baseline.x1(), first.frame.right() + 6);
    const PanelLayout& second = notes.Layout.panels.back();
    EXPECT_NEAR(notes.In(second.title, note).baseline.x2(), second.frame.right(), 2);
    plot.panels[1].title = std::string(130, 'M');
    EXPECT_TRUE(Notes{plot}.In(second.title, note).text.isEmpty()) << "no room";
    plot.panels[1].curves.assign(30, CurveOf(3));
    const Notes full{plot, {900, 250}};
    const PanelLayout& crowded = full.Layout.panels.back();
    EXPECT_EQ(crowded.title.right(), crowded.frame.right());
    EXPECT_FALSE(
        full.In(crowded.moreFiles, QString{"and %1 more"}.arg(30 - crowded.legend.size())).text.isEmpty());
    plot.panels.assign(9, Numbers);
    const Notes many{plot, {500, 300}};
    EXPECT_TRUE(many.In(many.Layout.footer, "quantities without room here: 6").isWhole);
    EXPECT_EQ(many.Layout.missingPanels, 6U);
    EXPECT_GE(many.Layout.footer.top(), many.Layout.panels.back().all.bottom());
}

TEST_F(Plots, DrawReadingsAndGaps)
{
    const std::vector<Reading> readings{{0, 1}, {1, 3}, {2, Missing}, {3, 2}, {4, Missing}, {5, 3}, {6, 1}};
    const Panel panel{
        "Title", "V", TimeKind::Number, "t", {0, 6}, {1, 3}, {{"file", Crosses, readings, 5, {}, 0}}};
    const Plot plot{{panel}, 0};
    QImage image{640, 400, QImage::Format_RGB32};
    QPainter painter{&image};
    const PanelLayout layout = DrawPlot(painter, image.size(), plot).panels.front();
    const QRect frame = layout.frame;
    const auto x = [&](double time) { return frame.left() + ColumnOf(time, panel.times, frame.width()); };
    const int middle = frame.bottom() - static_cast<int>(std::lround((frame.height() - 1) / 2.0));
    EXPECT_EQ(Text(image, {x(3) - 4, middle - 4, 8, 8}),
              "#   .   \n #  .  #\n  # . # \n   #.#  \n....#...\n   #.#  \n"
              "  # . # \n #  .  #\n");
    for (const double time : {0.5, 5.5})
        EXPECT_NE(Text(image, {x(time), frame.top(), 1, frame.height()}).find('-'), std::string::npos);
    for (const QRect part : {layout.title, layout.unit, layout.timeLabels, LegendName(layout.legend.back())})
        EXPECT_NE(Text(image, part).find('.'), std::string::npos);
    for (const double from : {1.0, 3.0})
        EXPECT_EQ(Text(image, {x(from) + 5, frame.top(), x(from + 2) - x(from) - 9, frame.height()})
                      .find_first_of("#-"),
                  std::string::npos)
            << from;
    EXPECT_NE(Text(image, LegendSample(layout.legend.front())).find("-#-"), std::string::npos);
    const QRect border = frame.adjusted(-1, -1, 1, 1);
    for (const QRect edge :
         {QRect{border.topLeft(), border.topRight()}, {border.topLeft(), border.bottomLeft()}})
        EXPECT_EQ(Text(image, edge).find(' '), std::string::npos) << "a frame";

    const QRect sample = LegendSample(layout.legend.front());
    const QPixmap icon = styleatlas::LegendIcon(Crosses).pixmap(sample.size());
    EXPECT_EQ(icon.toImage().convertToFormat(QImage::Format_ARGB32).pixel(2, 9), 0xFF0000FF);
    QPixmap pixmap{sample.size()};
    pixmap.fill(Qt::white);
    QPainter{&pixmap}.drawPixmap(0, 0, icon);
    EXPECT_EQ(Text(pixmap.toImage(), pixmap.rect()), Text(image, sample));
    const QImage large = styleatlas::LegendIcon(Crosses).pixmap(sample.size(), 2).toImage();
    EXPECT_EQ(large.size(), sample.size() * 2);
    EXPECT_EQ(QColor{large.pixel(4, 18)}, QColor{Qt::blue});

    PlotView shown{plot};
    shown.resize(image.size());
    EXPECT_EQ(shown.grab().toImage().convertToFormat(image.format()), image);
    const Plot none;
    PlotView view{none};
    const QImage empty = view.grab().toImage();
    view.SetHint("hint");
    EXPECT_NE(view.grab().toImage(), empty);
}

TEST_F(Plots, LeadToReadingsOutside)
{
    Plot plot{{Numbers}, 0};
    plot.panels[0].curves = {{"file", Crosses, {{0, 1}, {6, 3}}, 2, {}, 0}};
    QImage image{640, 400, QImage::Format_RGB32};
    QPainter painter{&image};
    const auto frameOf = [&](Range values) {
        const PlotScope scope{{{Range{2, 4}, values}}, {}};
        return DrawPlot(painter, image.size(), plot, scope).panels.front().frame;
    };
    const QRect frame = frameOf({1.5, 2.5});
    for (const int x : {frame.left(), frame.right()})
        EXPECT_NE(Text(image, {x, frame.top(), 1, frame.height()}).find('-'), std::string::npos) << x;
    const QRect other = frameOf({1.9, 2.1}); // where the line leaves below and above
    for (const int y : {other.top(), other.bottom()})
        EXPECT_NE(Text(image, {other.left(), y, other.width(), 1}).find('-'), std::string::npos) << y;
    for (const int y : {other.top() - 4, other.bottom() + 2})
        EXPECT_EQ(Text(image, {other.left(), y, other.width(), 3}).find('-'), std::string::npos) << y;
}

TEST_F(Plots, AreSmoothWhereAPixelIsSmall)
{
    Plot plot{{Numbers}, 0};
    plot.panels[0].curves = {{"file", Crosses, {{0, 1}, {6, 3}}, 2, {}, 0}};
    const auto blends = [&plot](int scale) {
        QImage image{640 * scale, 400 * scale, QImage::Format_RGB32};
        image.setDevicePixelRatio(scale);
        QPainter painter{&image};
        const QRect frame = DrawPlot(painter, {640, 400}, plot).panels.front().frame;
        int count = 0;
        for (int y = frame.top() * scale; y <= frame.bottom() * scale; ++y) {
            for (int x = frame.left() * scale; x <= frame.right() * scale; ++x) {
                const QColor pixel = image.pixelColor(x, y);
                count += pixel.blue() == 255 && pixel.red() > 0 && pixel.red() < 255 ? 1 : 0;
            }
        }
        return count;
    };
    EXPECT_EQ(blends(1), 0) << "the editor's pixels";
    EXPECT_GT(blends(2), 100);
}

} // namespace
} // namespace atlashost
