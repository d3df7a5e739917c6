// The plot of the sample host, down to its pixels.
#include "Axis.h"
#include "Calendar.h"
#include "CurvePainter.h"
#include "Downsampling.h"
#include "PlotLayout.h"
#include "PlotPainter.h"
#include "PlotWindow.h"

#include <QApplication>

#include <cmath>
#include <gtest/gtest.h>

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

TEST(Plot, DrawsReadingsAndGapsInPictureAndWindow)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int count = 1;
    char name[] = "plot_test";
    char* words[] = {name, nullptr};
    const QApplication application{count, words};
    const std::vector<Reading> readings{{0, 1}, {1, 3}, {2, Missing}, {3, 2}, {4, Missing}, {5, 3}, {6, 1}};
    const Panel panel{
        "Title", "V", TimeKind::Number, "t", {0, 6}, {1, 3}, {{"file", Crosses, readings, 5, {}, 0}}};
    const Plot plot{{panel}, 0};
    QImage image{640, 400, QImage::Format_RGB32};
    QPainter painter{&image};
    EXPECT_EQ(DrawPlot(painter, image.size(), plot), 0U);
    const PanelLayout layout = LayOut(plot, image.size(), painter.fontMetrics()).panels.front();
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

    PlotWindow window{plot};
    window.resize(image.size());
    EXPECT_EQ(window.grab().toImage().convertToFormat(image.format()), image);
}

TEST(Plot, KeepsOutliersWhenItDownsamples)
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

TEST(Plot, PutsEvenStepsOnItsAxes)
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
