// The plot of the sample host, down to its pixels.
#include "Axis.h"
#include "Calendar.h"
#include "CurvePainter.h"
#include "Downsampling.h"
#include "PlotLayout.h"
#include "PlotPainter.h"
#include "PlotWindow.h"
#include "styleatlas-qt.h"

#include "support/TempPrefix.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPaintEngine>

#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>

namespace atlashost
{
namespace
{

const double Missing = std::nan("");
const styleatlas::Style Crosses{{0x0000FF}, styleatlas::SymbolShape::Cross, 8, styleatlas::SymbolFill::Empty,
                                {0xFF0000}, styleatlas::LineStyle::Solid,   1};

// A row of text for each row of the rectangle: red "#", blue "-", white " ", other colours ".".
std::string Text(const QImage& image, QRect rect)
{
    std::string text;
    for (int y = rect.top(); y <= rect.bottom(); ++y, text += '\n') {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            text += pixel == Qt::red ? '#' : pixel == Qt::blue ? '-' : pixel == Qt::white ? ' ' : '.';
        }
    }
    return text;
}

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

const Panel Numbers{"Title", "V", TimeKind::Number, "t", {0, 6}, {1, 3}, {}};

Curve CurveOf(std::size_t count)
{
    std::vector<Reading> readings;
    for (std::size_t i = 0; i < count; ++i)
        readings.push_back({6.0 * static_cast<double>(i) / static_cast<double>(count), 2});
    return {"file", Crosses, readings, count, {}, 0};
}

class Plots : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        static int count = 1;
        static char name[] = "plot_test";
        static char* words[] = {name, nullptr};
        s_application = std::make_unique<QApplication>(count, words);
    }
    static void TearDownTestSuite() { s_application.reset(); }

private:
    static inline std::unique_ptr<QApplication> s_application;
};

// A panel in a line of text.
std::string Text(const Panel& panel)
{
    std::ostringstream text;
    text << panel.title << '|' << panel.unit << '|' << panel.timeTitle << '|' << panel.times.low << ' '
         << panel.times.high << '|' << panel.values.low << ' ' << panel.values.high;
    for (const Curve& curve : panel.curves) {
        text << '|' << curve.fileName << ' ' << curve.fileColumn << ' ' << curve.readingCount << ':';
        for (const Reading& reading : curve.readings)
            text << ' ' << reading.time << ' ' << reading.value;
    }
    return text.str();
}

TEST_F(Plots, HoldWhatTheFilesHold)
{
    const test::TempPrefix prefix;
    const auto file = [&](const char* name, std::string_view content) {
        std::filesystem::create_directories((prefix.Path() / name).parent_path());
        test::WriteWhole(prefix.Path() / name, content);
        return (prefix.Path() / name).string();
    };
    const std::string paths[] = {
        file("a/x.csv", "Date,Wind\n1970-01-03,4\n1970-01-01,2\nlater,9\n1970-01-02,\n"),
        file("b/x.csv", "Date,Wind\n1970-01-02 12:00,6\n"),
        file("y.csv", " t\x1b ,voltage, Temp ,Wind\n10,,-40,1\n30,,100,1\n20,, ,1\n"),
        file("z.csv", "name,Temp\nfirst,1\nsecond,1\n"), prefix.Path() / "none"};
    std::vector<const char*> pointers;
    for (const std::string& path : paths)
        pointers.push_back(path.c_str());
    std::string reports;
    const Plot plot = ReadPlot(pointers, [&](const std::string& report) { reports += report + '\n'; });
    EXPECT_EQ(plot.status, 1);
    EXPECT_EQ(reports, paths[0] + ": rows left out, as their first field is no date: 1\n" + paths[2] +
                           ": the column \"voltage\" has no readings, it is left out\n" + paths[4] +
                           ": No such file or directory\n");
    std::string panels;
    for (const Panel& panel : plot.panels)
        panels += Text(panel) + '\n';
    EXPECT_EQ(panels,
              "Wind speed, mean of 07:00 and 10:00|mph|Date|0 172800|2 6|" + paths[0] +
                  " 0 2: 0 2 86400 nan 172800 4|" + paths[1] +
                  " 1 1: 129600 6\n"
                  "Temperature of the day, maximum|°F|t\uFFFD|10 30|-40 100|y 2 2: 10 -40 20 nan 30 100\n"
                  "Wind speed, mean of 07:00 and 10:00|mph|t\uFFFD|10 30|0.9 1.1|y 2 3: 10 1 20 1 30 1\n"
                  "Temperature of the day, maximum|°F|row|1 2|0.9 1.1|z 3 2: 1 1 2 1\n");
}

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
}

TEST_F(Plots, DrawReadingsAndGapsInPictureAndWindow)
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
    PlotWindow window{plot};
    window.show();
    for (const auto& [key, isShown] : {std::pair(Qt::Key_A, true), {Qt::Key_Escape, false}}) {
        QKeyEvent press{QEvent::KeyPress, key, Qt::NoModifier};
        QCoreApplication::sendEvent(&window, &press);
        EXPECT_EQ(window.isVisible(), isShown);
        EXPECT_EQ(press.isAccepted(), !isShown);
    }
    const Plot none;
    PlotView view{none};
    const QImage empty = view.grab().toImage();
    view.SetHint("hint");
    EXPECT_NE(view.grab().toImage(), empty);
}

TEST_F(Plots, KeepOutliersWhenDownsampled)
{
    std::vector<Reading> readings;
    for (int i = 0; i < 100000; ++i)
        readings.push_back({double(i), i == 777 ? 9.0 : i == 50001 ? -9.0 : i % 3 == 0 ? Missing : i % 7});
    std::vector<Reading> kept = Downsampled(readings, {0, 99999}, 100, 4);
    std::erase_if(kept, IsGap);
    EXPECT_LE(kept.size(), 400U);
    const auto [lowest, highest] = std::ranges::minmax(kept, {}, &Reading::value);
    EXPECT_EQ(std::tuple(lowest.time, highest.time, kept.back().time), std::tuple(50001.0, 777.0, 99998.0));
}

TEST_F(Plots, HaveEvenStepsOnTheirAxes)
{
    const auto labels = [](const Axis& axis) {
        std::string all;
        for (const Tick& tick : axis.ticks)
            all += tick.label + "|";
        return all;
    };
    for (const auto& [from, to, expected] : {std::tuple("2024-02-28T20:59:59.5", "2024-02-29 07:00Z",
                                                        "2024-02-28 21:00|2024-02-29 00:00|03:00|06:00|"),
                                             {"2024-02-28 23:59:59", "2024-02-29 00:00:00.02",
                                              "2024-02-28 23:59:59.0|23:59:59.5|2024-02-29 00:00:00.0|"}})
        EXPECT_EQ(labels(TimeAxis({ParseTime(from).value(), ParseTime(to).value()}, TimeKind::Date, 500, 8)),
                  expected);
    EXPECT_EQ(labels(ValueAxis(Divisible({-1e308, 1e308}), 2)), "-1e+300|0e+00|1e+300|");
    for (const char* const text :
         {"1999-02-29", "1999-01-01 1x:00", "1999-01-01 24:00", "1999-01-01 12:00:00."})
        EXPECT_FALSE(ParseTime(text)) << text;
}

} // namespace
} // namespace atlashost
