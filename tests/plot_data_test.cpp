// What a plot holds of the files it is read from, and the steps of its axes.
#include "Axis.h"
#include "Calendar.h"
#include "Downsampling.h"
#include "PlotData.h"

#include "support/Plots.h"
#include "support/TempPrefix.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace atlashost
{
namespace
{

// A panel in a line of text.
std::string LineOf(const Panel& panel)
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
    EXPECT_EQ(
        reports,
        paths[0] + ":4: \"later\" in column Date is not a date\n" + paths[0] +
            ": rows left out, as their first field is no date: 1\n" + paths[2] +
            ": the column \"voltage\" has no readings, it is left out\n" + paths[3] +
            ":2: \"first\" is neither a date nor a number, as all first fields; the rows are numbered\n" +
            paths[4] + ": No such file or directory\n");
    std::string panels;
    for (const Panel& panel : plot.panels)
        panels += LineOf(panel) + '\n';
    EXPECT_EQ(panels,
              "Wind speed, mean of 07:00 and 10:00|mph|Date|0 172800|2 6|" + paths[0] +
                  " 0 2: 0 2 86400 nan 172800 4|" + paths[1] +
                  " 1 1: 129600 6\n"
                  "Temperature of the day, maximum|°F|t\uFFFD|10 30|-40 100|y 2 2: 10 -40 20 nan 30 100\n"
                  "Wind speed, mean of 07:00 and 10:00|mph|t\uFFFD|10 30|0.9 1.1|y 2 3: 10 1 20 1 30 1\n"
                  "Temperature of the day, maximum|°F|row|1 2|0.9 1.1|z 3 2: 1 1 2 1\n");
}

TEST_F(Plots, KnowTheOrderOfADate)
{
    const std::pair<std::string_view, std::string_view> files[] = {
        {"Date,Wind\nx,9\n1/2/1970,1\n1/13/1970,2\ny,9\n", "Date|86400 1036800: 86400 1 1036800 2"},
        {"Date,Wind\n1.2.1970,1\n13.2.1970,2\n", "Date|2678400 3715200: 2678400 1 3715200 2"},
        {"Date,Wind\n1970-01-02,1\n1/3/1970,2\n1970-01-04,3\n", "Date|86400 259200: 86400 1 259200 3"},
        {"Date,Wind\n1970-01-01T10:00:00+01:00,1\n1970-01-01 11:00+0100,2\n1970-01-01 12:00-01,3\n"
         "1970-01-01 1:00 PM,4\n1970-01-01 14:00:00.5Z,5\n1970-01-01 15:00Z,6\n",
         "Date|36000 54000: 36000 1 39600 2 43200 3 46800 4 50400.5 5 54000 6"},
        {"t;Wind\n1;1,234\n2;5,6\n", "t|1 2: 1 1.234 2 5.6"},
        {"t;Wind\n1;-123,456\n2;7\n3;8\n", "t|1 3: 1 nan 2 7 3 8"}, // thousands, or a fraction
        {"t,Wind\n5,1\n", "t|4.5 5.5: 5 1"},
        {"Date,Wind\n1970-01-03,1\n", "Date|129600 216000: 172800 1"},
        {"t \xB0;Wind\n1;2                                                        \n3;4\n",
         "t \u00B0|1 3: 1 2 3 4"},
        {"\u00B0\u00B5;Wind\n1;2\n3;4\n", "\u00B0\u00B5|1 3: 1 2 3 4"}};
    const test::TempPrefix prefix;
    const std::string path = prefix.Path() / "x.csv";
    for (const auto& [content, expected] : files) {
        test::WriteWhole(path, content);
        const Plot plot = ReadPlot({{path.c_str()}}, [](const std::string&) {});
        ASSERT_EQ(plot.panels.size(), 1U) << content;
        const Panel& panel = plot.panels[0];
        std::ostringstream text;
        text << std::setprecision(9) << panel.timeTitle << '|' << panel.times.low << ' ' << panel.times.high
             << ':';
        for (const Reading& reading : panel.curves[0].readings)
            text << ' ' << reading.time << ' ' << reading.value;
        EXPECT_EQ(text.str(), expected);
    }
}

// The first rows don't show which mark it is.
TEST_F(Plots, LearnTheDecimalMarkFromALaterRow)
{
    const test::TempPrefix prefix;
    std::string content = "t;Wind\n";
    for (int i = 0; i < 5000; ++i)
        content += std::to_string(i) + ";1\n";
    const std::string path = prefix.Path() / "x.csv";
    test::WriteWhole(path, content + "5000;5,6\n5001;1,234\n");
    const Plot plot = ReadPlot({{path.c_str()}}, [](const std::string&) {});
    const std::vector<Reading>& readings = plot.panels.at(0).curves.at(0).readings;
    EXPECT_EQ(readings.at(5000).value, 5.6);
    EXPECT_EQ(readings.at(5001).value, 1.234);
}

TEST_F(Plots, TellHowFarTheyAreRead)
{
    const test::TempPrefix prefix;
    std::string content = "t,Wind\n";
    while (content.size() < 5'000'000)
        content += "1,2.00000000000000000000000000000000000000000000000000000\n";
    const std::string path = prefix.Path() / "x.csv";
    test::WriteWhole(path, content);
    for (const bool isCancelled : {false, true}) {
        std::vector<std::size_t> inRows;
        std::size_t last = 0;
        bool isReadFirst = false;
        std::string reports;
        ReadPlot(
            {{path.c_str()}}, [&](const std::string& report) { reports += report; },
            [&](const std::string& file, std::size_t done, std::size_t all) {
                EXPECT_TRUE(file == path && done >= last && done <= all);
                last = done;
                isReadFirst |= 2 * done < all;
                if (2 * done > all)
                    inRows.push_back(done);
                return !isCancelled || inRows.empty();
            });
        EXPECT_TRUE(isReadFirst);
        EXPECT_EQ(inRows.size(), isCancelled ? 1U : 4U) << "one for each 2^20 bytes";
        EXPECT_EQ(reports, isCancelled ? path + ": the reading was cancelled" : "");
    }
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
                                              "2024-02-28 23:59:59.0|23:59:59.5|2024-02-29 00:00:00.0|"},
                                             {"2023-09-15", "2024-05-20", "2023-11|2024-01|2024-03|2024-05|"},
                                             {"1990-02-15", "2024-05-20", "1995|2000|2005|2010|2015|2020|"}})
        EXPECT_EQ(labels(TimeAxis({ParseTime(from).value(), ParseTime(to).value()}, TimeKind::Date, 500, 8)),
                  expected);
    EXPECT_EQ(labels(ValueAxis(Divisible({-1e308, 1e308}), 2)), "-1e+300|0e+00|1e+300|");
    for (const char* const text :
         {"1999-02-29", "1999-01-01 1x:00", "1999-01-01 24:01", "1999-01-01 12:00:00."})
        EXPECT_FALSE(ParseTime(text)) << text;
}

} // namespace
} // namespace atlashost
