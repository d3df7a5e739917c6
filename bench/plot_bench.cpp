// A frame of the sample host's plot with a million readings, whole and zoomed; against a bare loop that finds
// the lowest and the highest reading of each column of pixels.
#include "Suite.h"

#include <PlotPainter.h>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace
{

using namespace atlashost;

constexpr QSize windowSize{1280, 860};
constexpr std::size_t readingCount = 1'000'000;
constexpr double maxFrameTime = 16e6; // ns: sixty frames a second

Plot MakePlot()
{
    Plot plot;
    Panel& panel = plot.panels.emplace_back();
    panel.title = "Wind speed";
    panel.times = {0, readingCount};
    panel.values = {-2, 2};
    panel.timeKind = TimeKind::Number;
    Curve& curve = panel.curves.emplace_back();
    curve.style.symbolShape = styleatlas::SymbolShape::Circle;
    curve.readingCount = readingCount;
    for (std::size_t i = 0; i < readingCount; ++i) {
        const auto time = static_cast<double>(i);
        curve.readings.push_back({time, std::sin(time * 1e-5) + std::cos(time * 0.7)});
    }
    return plot;
}

void DrawByLoop(const Plot& plot)
{
    std::array<Range, windowSize.width()> columns;
    columns.fill({std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()});
    const Panel& panel = plot.panels.front();
    for (const Reading& reading : panel.curves.front().readings) {
        const auto column =
            static_cast<std::size_t>(panel.times.ShareOf(reading.time) * (columns.size() - 1));
        columns[column].low = std::min(columns[column].low, reading.value);
        columns[column].high = std::max(columns[column].high, reading.value);
    }
    benchmark::DoNotOptimize(columns);
}

void AddFrame(bench::Suite& suite, const std::string& name, const Plot& plot, const PlotScope& scope)
{
    suite.Add(name, 1, [&plot, scope](benchmark::State& state) {
        QImage image{windowSize, QImage::Format_RGB32};
        for ([[maybe_unused]] const auto iteration : state) {
            QPainter painter{&image};
            DrawPlot(painter, windowSize, plot, scope);
        }
    });
    suite.Compare({.Name = name, .Ours = name, .Peer = "", .Goal = maxFrameTime});
}

int Run(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QGuiApplication application{argc, argv};
    const Plot plot = MakePlot();
    bench::Suite suite{argc, argv, {"--benchmark_repetitions=9", "--benchmark_min_time=0.05"}};
    PlotScope zoomed;
    zoomed.zooms.resize(1);
    zoomed.zooms.front().times = Range{0.4 * readingCount, 0.5 * readingCount};
    AddFrame(suite, "everything", plot, {});
    AddFrame(suite, "a tenth of the times", plot, zoomed);
    suite.Add("bare loop, everything", 1, [&plot](benchmark::State& state) {
        for ([[maybe_unused]] const auto iteration : state)
            DrawByLoop(plot);
    });
    suite.Run();
    suite.Compare({.Name = "everything", .Ours = "everything", .Peer = "bare loop, everything"});
    suite.PrintTable("A frame of a plot with a million readings", bench::threadTime + "a frame");
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::RunProgram(argc, argv, Run);
}
