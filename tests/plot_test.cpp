// The plot of the sample host, down to its pixels.
#include "Axis.h"
#include "Calendar.h"
#include "CurvePainter.h"
#include "PlotLayout.h"
#include "PlotPainter.h"
#include "PlotWindow.h"

#include "styleatlas.h"

#include <QApplication>
#include <QKeyEvent>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace atlashost
{
namespace
{

const double Missing = std::nan("");
const CurveStyle Crosses{0x0000FF, STYLEATLAS_SHAPE_CROSS, 8, 1, 0xFF0000, STYLEATLAS_LINE_SOLID, 1, 0};

// A row of text for each row of the rectangle: red "#", blue "-", other colours ".".
std::string Text(const QImage& image, QRect rect)
{
    std::string text;
    for (int y = rect.top(); y <= rect.bottom(); ++y, text += '\n') {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            text += pixel == Qt::red ? '#' : pixel == Qt::blue ? '-' : '.';
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
    const std::vector<Reading> readings = {{0, 1}, {1, 3}, {2, Missing}, {3, 2}, {4, Missing}, {5, 3}};
    const Panel panel{"Title", "V", TimeKind::Number, "t", {0, 5}, {1, 3}, {{"file", Crosses, readings, 4}}};
    const Plot plot{{panel}, 0};
    QImage image{640, 400, QImage::Format_RGB32};
    QPainter painter{&image};
    EXPECT_EQ(DrawPlot(painter, image.size(), plot), 0U);
    const PanelLayout layout = LayOut(plot, image.size(), painter.fontMetrics()).panels.front();
    const QRect frame = layout.frame;
    const auto x = [&](double time) { return frame.left() + ColumnOf(time, panel.times, frame.width()); };
    const auto around = [&](const Reading& reading) {
        const double share = (reading.value - 1) / 2;
        const int y = frame.bottom() - static_cast<int>(std::lround(share * (frame.height() - 1)));
        return Text(image, {x(reading.time) - 4, y - 4, 8, 8});
    };
    EXPECT_EQ(around(readings[3]), "#.......\n.#.....#\n..#...#.\n...#.#..\n....#...\n...#.#..\n"
                                   "..#...#.\n.#.....#\n");
    EXPECT_NE(Text(image, {x(0.5), frame.top(), 1, frame.height()}).find('-'), std::string::npos);
    for (const double from : {1.0, 3.0}) {
        const QRect gap{QPoint{x(from) + 5, frame.top()}, QPoint{x(from + 2) - 5, frame.bottom()}};
        EXPECT_EQ(Text(image, gap).find_first_of("#-"), std::string::npos) << from;
    }
    EXPECT_NE(Text(image, LegendSample(layout.legend.front())).find("-#-"), std::string::npos);

    PlotWindow window{plot};
    window.show();
    window.resize(image.size());
    EXPECT_EQ(window.grab().toImage().convertToFormat(image.format()), image);
    QKeyEvent escape{QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier};
    QApplication::sendEvent(&window, &escape);
    EXPECT_FALSE(window.isVisible());
}

TEST(Plot, DrawsTheFillsAndDashesOfTheStyle)
{
    const auto symbol = [](std::int16_t shape, std::int16_t fill) {
        const QImage image = MakeSymbolPicture({0x0000FF, shape, 8, fill, 0, 0, 0, 0}).image;
        return Text(image, image.rect());
    };
    EXPECT_EQ(symbol(STYLEATLAS_SHAPE_CIRCLE, STYLEATLAS_FILL_EMPTY_WITH_DOT),
              "..####...\n.#....#..\n#..##..#.\n#.####.#.\n#.####.#.\n#..##..#.\n.#....#..\n..####...\n"
              ".........\n");
    EXPECT_EQ(symbol(77, STYLEATLAS_FILL_FILLED), "");
    const auto line = [](std::int16_t lineStyle, std::int16_t width) {
        QImage image{30, 5, QImage::Format_RGB32};
        image.fill(Qt::white);
        QPainter painter{&image};
        CurvePainter{painter, {0, 0, 0, 0, 0xFF0000, lineStyle, width, 0}}.DrawSample(image.rect());
        return Text(image, {0, 2, 30, 1});
    };
    EXPECT_EQ(line(STYLEATLAS_LINE_DASH_DOT_DOT, 1), "---------...---...---...------\n");
    EXPECT_EQ(line(STYLEATLAS_LINE_DASH_DOT_DOT, 3), std::string(30, '-') + "\n");
    EXPECT_EQ(line(STYLEATLAS_LINE_NONE, 3), std::string(30, '.') + "\n");
}

TEST(Plot, ThinsOutWhatPixelsCannotTellApart)
{
    std::vector<Reading> readings;
    for (int i = 0; i < 100000; ++i)
        readings.push_back({double(i), i == 777 ? 9.0 : i == 50001 ? -9.0 : i % 3 == 0 ? Missing : i % 7});
    std::vector<Reading> thinned = Thinned(readings, {0, 99999}, 100, 4);
    std::erase_if(thinned, IsGap);
    EXPECT_LE(thinned.size(), 400U);
    const auto [lowest, highest] = std::ranges::minmax(thinned, {}, &Reading::value);
    EXPECT_EQ(std::pair(lowest.time, highest.time), std::pair(50001.0, 777.0));
}

TEST(Plot, PutsEvenStepsOnItsAxes)
{
    const auto labels = [](const Axis& axis) {
        std::string all;
        for (const Tick& tick : axis.ticks)
            all += tick.label + "|";
        return all;
    };
    const auto times = [&](const char* from, const char* to) {
        return labels(TimeAxis({ParseTime(from).value(), ParseTime(to).value()}, TimeKind::Date, 500, 8));
    };
    EXPECT_EQ(labels(ValueAxis(Divisible({5, 5}), 3)), "4.5|5.0|5.5|");
    EXPECT_EQ(labels(ValueAxis(Divisible({-1e308, 1e308}), 2)), "-1e+300|0e+00|1e+300|");
    EXPECT_EQ(times("1999-12-20", "2000-02-20"), "2000-01-01|01-16|02-01|02-16|");
    EXPECT_EQ(times("2024-02-28T20:59:59.5", "2024-02-29 07:00"),
              "2024-02-28 21:00|2024-02-29 00:00|03:00|06:00|");
    EXPECT_EQ(times("1971-01-01", "2024-01-01"), "1980|1990|2000|2010|2020|");
    for (const char* const text :
         {"1999-02-29", "99-01-01", "1999-01-01 24:00", "-199-01-01", "1999-01-01 12:00:00."})
        EXPECT_FALSE(ParseTime(text)) << text;
}

} // namespace
} // namespace atlashost
