// The plot of the sample host, down to its pixels.
#include "Axis.h"
#include "Calendar.h"
#include "CurvePainter.h"
#include "Downsampling.h"
#include "PictureFile.h"
#include "PlotLayout.h"
#include "PlotPainter.h"
#include "PlotView.h"
#include "PlotWindow.h"
#include "styleatlas-qt.h"

#include "support/TempPrefix.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPaintEngine>
#include <QStatusBar>
#include <QWheelEvent>

#include <cmath>
#include <csignal>
#include <gtest/gtest.h>
#include <iomanip>
#include <memory>
#include <sstream>

#include <sys/resource.h>

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
    EXPECT_EQ(
        reports,
        paths[0] + ":4: \"later\" in column Date is not a date\n" + paths[0] +
            ": rows left out, as their first field is no date: 1\n" + paths[2] +
            ": the column \"voltage\" has no readings, it is left out\n" + paths[3] +
            ":2: \"first\" is neither a date nor a number, as all first fields; the rows are numbered\n" +
            paths[4] + ": No such file or directory\n");
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

TEST_F(Plots, KnowTheOrderOfADate)
{
    const std::pair<std::string_view, std::string_view> files[] = {
        {"Date,Wind\nx,9\n1/2/1970,1\n1/13/1970,2\ny,9\n", "Date|86400 1036800: 86400 1 1036800 2"},
        {"Date,Wind\n1.2.1970,1\n13.2.1970,2\n", "Date|2678400 3715200: 2678400 1 3715200 2"},
        {"Date,Wind\n1970-01-02,1\n1/3/1970,2\n1970-01-04,3\n", "Date|86400 259200: 86400 1 259200 3"},
        {"Date,Wind\n1970-01-01T10:00:00+01:00,1\n1970-01-01 11:00+0100,2\n1970-01-01 12:00-01,3\n"
         "1970-01-01 1:00 PM,4\n1970-01-01 14:00:00.5Z,5\n1970-01-01 15:00Z,6\n",
         "Date|36000 54000: 36000 1 39600 2 43200 3 46800 4 50400.5 5 54000 6"},
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
    PlotWindow window{plot};
    window.show();
    EXPECT_EQ(window.focusWidget(), window.centralWidget()) << "the keys are the plot's";
    EXPECT_TRUE(window.statusBar()->isVisible() && window.windowTitle() == "Curves");
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

template <class Event, class... Arguments> void Send(QWidget& widget, Arguments... arguments)
{
    Event event{arguments...};
    QCoreApplication::sendEvent(&widget, &event);
}

TEST_F(Plots, ZoomAndPan)
{
    Plot plot{{Numbers, Numbers}, 0};
    for (Panel& panel : plot.panels)
        panel.curves = {CurveOf(7)};
    PlotView view{plot};
    view.resize(640, 400);
    view.show(); // a hidden one lays itself out for each picture
    const QImage all = view.grab().toImage();
    const auto layout = [&] {
        return LayOut(plot, view.Scope(), view.size(), QFontMetrics{PlotFont()}).panels;
    };
    const QRect frame = layout()[0].frame;
    const QPoint corner = frame.bottomLeft();
    const auto wheel = [&](QPoint at, Qt::KeyboardModifiers modifiers) {
        Send<QWheelEvent>(view, QPointF{at}, QPointF{at}, QPoint{}, QPoint{0, 120}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
    };
    wheel(corner, Qt::ControlModifier);
    for (const PanelLayout& panel : layout()) {
        EXPECT_NEAR(panel.times.range.high, 4.8, 1e-9) << "one range for both panels";
        EXPECT_EQ(panel.values.range, panel.allValues);
    }
    wheel(corner, Qt::ShiftModifier);
    EXPECT_LT(layout()[0].values.range.high, layout()[0].allValues.high);
    EXPECT_FALSE(layout()[1].values.range.high < layout()[1].allValues.high);
    const QImage zoomed = view.grab().toImage();
    EXPECT_NE(zoomed, all);
    const auto key = [&](Qt::Key pressed) {
        Send<QKeyEvent>(view, QEvent::KeyPress, pressed, Qt::NoModifier);
    };
    key(Qt::Key_Right);
    EXPECT_NEAR(layout()[1].times.range.low, 0.48, 0.02);
    EXPECT_NE(view.grab().toImage(), zoomed);
    key(Qt::Key_Home);
    EXPECT_EQ(view.grab().toImage(), all);

    const auto mouse = [&](QEvent::Type type, QPoint at, Qt::KeyboardModifiers modifiers) {
        Send<QMouseEvent>(view, type, QPointF{at}, QPointF{at}, Qt::LeftButton, Qt::LeftButton, modifiers);
    };
    const auto drag = [&](QPoint from, QPoint to, Qt::KeyboardModifiers modifiers) {
        mouse(QEvent::MouseButtonPress, from, modifiers);
        mouse(QEvent::MouseMove, to, modifiers);
        mouse(QEvent::MouseButtonRelease, to, modifiers);
    };
    const QPoint middle = frame.center();
    drag(middle, frame.bottomRight(), {});
    const Range times = layout()[0].times.range;
    EXPECT_NEAR(times.low, 3, 0.02);
    EXPECT_EQ(times.high, 6);
    drag(middle, middle + QPoint{frame.width() / 4, 0}, Qt::ShiftModifier);
    EXPECT_NEAR(layout()[0].times.range.low, times.low - 0.75, 0.02);
    const Range values = layout()[0].values.range;
    const double quarter = (values.high - values.low) / 4;
    drag(middle, middle + QPoint{0, frame.height() / 4}, Qt::ShiftModifier);
    EXPECT_NEAR(layout()[0].values.range.low, values.low + quarter, quarter / 20);
    mouse(QEvent::MouseButtonDblClick, middle, {});
    EXPECT_EQ(view.Scope().ZoomOf(0).times, std::nullopt);
    // A narrow band means the values alone, a flat one the times alone.
    drag(middle, middle + QPoint{1, frame.height() / 4}, {});
    EXPECT_TRUE(!view.Scope().ZoomOf(0).times && view.Scope().ZoomOf(0).values);
    mouse(QEvent::MouseButtonDblClick, middle, {});
    drag(middle, middle + QPoint{frame.width() / 4, 1}, {});
    EXPECT_TRUE(view.Scope().ZoomOf(0).times && !view.Scope().ZoomOf(0).values);

    // New curves end a drag, and the keys are for the first panel again.
    const QPoint second = layout()[1].frame.center();
    mouse(QEvent::MouseMove, second, {});
    mouse(QEvent::MouseButtonPress, second, Qt::ShiftModifier);
    view.ShowNewPlot();
    mouse(QEvent::MouseMove, second + QPoint{30, 30}, Qt::ShiftModifier);
    EXPECT_EQ(view.grab().toImage(), all);
    view.ShowNewPlot();
    key(Qt::Key_Plus);
    EXPECT_TRUE(view.Scope().ZoomOf(0).values && !view.Scope().ZoomOf(1).values);
}

TEST_F(Plots, SayWhatIsUnderThePointer)
{
    Plot plot{{Numbers}, 0};
    plot.panels[0].curves = {CurveOf(7)};
    plot.panels[0].curves[0].readings[1] = {1.25, 2.5};
    PlotWindow window{plot};
    window.show();
    auto& view = dynamic_cast<PlotView&>(*window.centralWidget());
    const QImage before = view.grab().toImage();
    const PanelLayout layout = LayOut(plot, {}, view.size(), QFontMetrics{PlotFont()}).panels.front();
    const auto textAt = [&](QPoint at) {
        Send<QMouseEvent>(view, QEvent::MouseMove, QPointF{at}, QPointF{at}, Qt::NoButton, Qt::NoButton,
                          Qt::NoModifier);
        return window.statusBar()->currentMessage();
    };
    EXPECT_EQ(textAt(layout.Map().PointOf({1.25, 2.5}).toPoint() + QPoint{3, 3}),
              "file: Title, 2.5 V, t 1.25");
    EXPECT_NE(view.grab().toImage(), before) << "marked";
    Send<QEvent>(view, QEvent::Leave);
    EXPECT_EQ(view.grab().toImage(), before);
    EXPECT_TRUE(textAt(layout.Map().PointOf({3, 1.5}).toPoint()).startsWith("1.5"))
        << textAt({}).toStdString();
    EXPECT_EQ(textAt({}), "");
    view.Mark({{0, 1}});
    const QImage pale = view.grab().toImage();
    EXPECT_NE(pale, before) << "pale";
    EXPECT_EQ(Text(pale, layout.frame).find_first_of("-#"), std::string::npos) << "symbol and line";
    view.Mark({});
    EXPECT_EQ(view.grab().toImage(), before);
}

TEST_F(Plots, LeadToReadingsOutside)
{
    Plot plot{{Numbers}, 0};
    plot.panels[0].curves = {{"file", Crosses, {{0, 1}, {6, 3}}, 2, {}, 0}};
    QImage image{640, 400, QImage::Format_RGB32};
    QPainter painter{&image};
    const QRect frame =
        DrawPlot(painter, image.size(), plot, {{{Range{2, 4}, Range{1.5, 2.5}}}, {}}).panels.front().frame;
    for (const int x : {frame.left(), frame.right()})
        EXPECT_NE(Text(image, {x, frame.top(), 1, frame.height()}).find('-'), std::string::npos) << x;
    EXPECT_EQ(Text(image, {frame.left(), frame.bottom() + 2, frame.width(), 3}).find('-'), std::string::npos);
}

TEST_F(Plots, AreWrittenInWholeOrNotAtAll)
{
    const test::TempPrefix prefix;
    const std::string path = prefix.Path() / "p.svg";
    test::WriteWhole(path, "old");
    const auto write = [&](PictureFormat format) {
        WritePicture(path.c_str(), format, {{192, 384}, 192}, [](QPainter& painter, QSize size) {
            EXPECT_EQ(size, QSize(96, 192));
            painter.fillRect(QRect{{}, size}, Qt::red);
        });
        return test::ReadWhole(path);
    };
    EXPECT_NE(write(PictureFormat::Svg).find("viewBox=\"0 0 96 192\""), std::string::npos);
    EXPECT_NE(write(PictureFormat::Pdf).find("/MediaBox [0 0 72."), std::string::npos) << "in points";
    write(PictureFormat::Png);
    const QImage written{QString::fromStdString(path)};
    EXPECT_EQ(written.size(), QSize(192, 384));
    EXPECT_EQ(written.pixelColor(191, 383), Qt::red);
    EXPECT_NEAR(written.dotsPerMeterX(), 192 / 0.0254, 1);
    const std::string before = test::ReadWhole(path);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{16, limit.rlim_max};
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_THROW(write(PictureFormat::Svg), std::runtime_error);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_EQ(test::ReadWhole(path), before);
    EXPECT_EQ(
        std::distance(std::filesystem::directory_iterator{std::filesystem::path{path}.parent_path()}, {}), 1)
        << "nothing else is left";
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
         {"1999-02-29", "1999-01-01 1x:00", "1999-01-01 24:01", "1999-01-01 12:00:00."})
        EXPECT_FALSE(ParseTime(text)) << text;
}

} // namespace
} // namespace atlashost
