// A plot in a window: zoomed, moved and asked by mouse and keys.
#include "PlotPainter.h"
#include "PlotView.h"
#include "PlotWindow.h"
#include "StyleCheckDialog.h"

#include "support/Plots.h"
#include "support/TempPrefix.h"

#include <QKeyEvent>
#include <QScreen>
#include <QStatusBar>
#include <QTreeWidget>
#include <QWheelEvent>

#include <functional>
#include <set>

namespace atlashost
{
namespace
{

class PaintCount : public QObject
{
public:
    int Count = 0;

private:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        Count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

// Two panels on the screen, and what a user does there.
class PlotViews : public Plots
{
protected:
    PlotViews()
    {
        for (Panel& panel : plot.panels)
            panel.curves = {CurveOf(7)};
        view.resize(640, 400);
        view.show(); // a hidden one lays itself out for each picture
        everything = Picture();
    }

    QImage Picture() { return view.grab().toImage(); }
    std::vector<PanelLayout> Layout() const
    {
        return LayOut(plot, view.Scope(), view.size(), QFontMetrics{PlotFont()}).panels;
    }
    void Wheel(QPoint at, Qt::KeyboardModifiers modifiers)
    {
        Send<QWheelEvent>(view, QPointF{at}, QPointF{at}, QPoint{}, QPoint{0, 120}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
    }
    void Press(Qt::Key key) { Send<QKeyEvent>(view, QEvent::KeyPress, key, Qt::NoModifier); }
    void Mouse(QEvent::Type type, QPoint at, Qt::KeyboardModifiers modifiers = {})
    {
        Send<QMouseEvent>(view, type, QPointF{at}, QPointF{at}, Qt::LeftButton, Qt::LeftButton, modifiers);
    }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {})
    {
        Mouse(QEvent::MouseButtonPress, from, modifiers);
        Mouse(QEvent::MouseMove, to, modifiers);
        Mouse(QEvent::MouseButtonRelease, to, modifiers);
    }
    bool IsRepaintedAfter(const std::function<void()>& act)
    {
        QCoreApplication::processEvents();
        PaintCount paints;
        view.installEventFilter(&paints);
        act();
        QCoreApplication::processEvents();
        return paints.Count > 0;
    }

    Plot plot{{Numbers, Numbers}, 0};
    PlotView view{plot};
    QImage everything;
};

TEST_F(PlotViews, ZoomAndPan)
{
    const QRect frame = Layout()[0].frame;
    const QPoint corner = frame.bottomLeft();
    Wheel(corner, Qt::ControlModifier);
    for (const PanelLayout& panel : Layout()) {
        EXPECT_NEAR(panel.times.range.high, 4.8, 1e-9) << "one range for both panels";
        EXPECT_EQ(panel.values.range, panel.allValues);
    }
    Wheel(corner, Qt::ShiftModifier);
    EXPECT_LT(Layout()[0].values.range.high, Layout()[0].allValues.high);
    EXPECT_FALSE(Layout()[1].values.range.high < Layout()[1].allValues.high);
    const QImage zoomed = Picture();
    EXPECT_NE(zoomed, everything);
    Press(Qt::Key_Right);
    EXPECT_NEAR(Layout()[1].times.range.low, 0.48, 0.02);
    EXPECT_NE(Picture(), zoomed);
    Press(Qt::Key_Home);
    EXPECT_EQ(Picture(), everything);
    Wheel(Layout()[0].legend[0].center(), {});
    EXPECT_EQ(Picture(), everything) << "the legend is no part of the panel";

    const QPoint middle = frame.center();
    Drag(middle, frame.bottomRight());
    const Range times = Layout()[0].times.range;
    EXPECT_NEAR(times.low, 3, 0.02);
    EXPECT_EQ(times.high, 6);
    Mouse(QEvent::MouseButtonPress, middle, Qt::ShiftModifier);
    EXPECT_EQ(view.cursor().shape(), Qt::ClosedHandCursor);
    Mouse(QEvent::MouseMove, middle + QPoint{frame.width() / 4, 0});
    EXPECT_NEAR(Layout()[0].times.range.low, times.low - 0.75, 0.02);
    Mouse(QEvent::MouseButtonRelease, middle + QPoint{frame.width() / 4, 0});
    EXPECT_EQ(view.cursor().shape(), Qt::ArrowCursor);
    const Range values = Layout()[0].values.range;
    const double quarter = (values.high - values.low) / 4;
    Drag(middle, middle + QPoint{0, frame.height() / 4}, Qt::ShiftModifier);
    EXPECT_NEAR(Layout()[0].values.range.low, values.low + quarter, quarter / 20);
    Mouse(QEvent::MouseButtonDblClick, middle);
    EXPECT_EQ(view.Scope().ZoomOf(0).times, std::nullopt);

    // The keys are for the panel under the pointer. New curves end a drag, and the keys are for the first
    // again.
    const QPoint second = Layout()[1].frame.center();
    Mouse(QEvent::MouseMove, second);
    Press(Qt::Key_Plus);
    EXPECT_TRUE(!view.Scope().ZoomOf(0).values && view.Scope().ZoomOf(1).values);
    Mouse(QEvent::MouseButtonPress, second, Qt::ShiftModifier);
    view.ShowNewPlot();
    Mouse(QEvent::MouseMove, second + QPoint{30, 30}, Qt::ShiftModifier);
    EXPECT_EQ(Picture(), everything);
    view.ShowNewPlot();
    Press(Qt::Key_Plus);
    EXPECT_TRUE(view.Scope().ZoomOf(0).values && !view.Scope().ZoomOf(1).values);
    view.resize(500, 400);
    EXPECT_EQ(Picture().size(), view.size());
}

// A narrow band means the values alone, a flat one the times alone.
TEST_F(PlotViews, ShowTheBandOfADrag)
{
    const QRect frame = Layout()[0].frame;
    const QPoint from = frame.center() - QPoint{3, 5};
    const QColor highlight = view.palette().color(QPalette::Highlight);
    for (const QPoint way : {QPoint{60, 40}, {60, 1}, {1, 40}}) {
        Mouse(QEvent::MouseButtonPress, from);
        Mouse(QEvent::MouseMove, from + way);
        const bool hasTimes = way.x() > 1;
        const bool hasValues = way.y() > 1;
        const QPoint inside = from + QPoint{hasTimes ? 30 : 100, hasValues ? 20 : 30};
        const QPoint border = hasTimes ? QPoint{from.x(), inside.y()} : QPoint{inside.x(), from.y()};
        const QPoint outside = from - (hasTimes ? QPoint{5, 0} : QPoint{0, 5});
        const QImage band = Picture();
        EXPECT_NE(band.pixelColor(inside), everything.pixelColor(inside));
        EXPECT_NE(band.pixelColor(inside), highlight) << "the curves shine through";
        EXPECT_EQ(band.pixelColor(border), highlight);
        EXPECT_EQ(band.pixelColor(outside), everything.pixelColor(outside));
        Mouse(QEvent::MouseButtonRelease, from + way);
        EXPECT_EQ(view.Scope().ZoomOf(0).times.has_value(), hasTimes);
        EXPECT_EQ(view.Scope().ZoomOf(0).values.has_value(), hasValues);
        Send<QEvent>(view, QEvent::Leave);
        EXPECT_NE(Picture(), everything);
        Mouse(QEvent::MouseButtonDblClick, from);
        Send<QEvent>(view, QEvent::Leave);
        EXPECT_EQ(Picture(), everything);
    }
}

TEST_F(PlotViews, AreRepaintedAfterWhatAUserDoes)
{
    const QPoint middle = Layout()[0].frame.center();
    const std::function<void()> acts[] = {
        [&] { Mouse(QEvent::MouseMove, middle); },
        [&] { Send<QEvent>(view, QEvent::Leave); },
        [&] { Wheel(middle, {}); },
        [&] { Press(Qt::Key_Left); },
        [&] {
            Mouse(QEvent::MouseButtonPress, middle), Mouse(QEvent::MouseMove, middle + QPoint{9, 9});
        },
        [&] { Mouse(QEvent::MouseButtonRelease, middle); },
        [&] { Mouse(QEvent::MouseButtonDblClick, middle); },
        [&] {
            Mouse(QEvent::MouseButtonPress, middle);
            Mouse(QEvent::MouseButtonRelease, middle);
        },
        [&] {
            view.Mark({{0, 0}});
        }};
    for (const auto& act : acts)
        EXPECT_TRUE(IsRepaintedAfter(act)) << &act - acts;
    EXPECT_FALSE(IsRepaintedAfter([] {}));
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
    std::set<QRgb> colors; // of the ring's smooth edges
    const QPoint reading = layout.Map().PointOf({1.25, 2.5}).toPoint();
    textAt(reading);
    const QImage marked = view.grab().toImage();
    for (int i = 0; i < 400; ++i)
        colors.insert(marked.pixel(reading + QPoint{i % 20 - 10, i / 20 - 10}));
    EXPECT_GT(colors.size(), 12U);
    const auto mouse = [&](QEvent::Type type) {
        Send<QMouseEvent>(view, type, QPointF{reading}, QPointF{reading}, Qt::LeftButton, Qt::LeftButton,
                          Qt::ShiftModifier);
    };
    mouse(QEvent::MouseButtonPress);
    EXPECT_EQ(view.grab().toImage(), before) << "no mark in a drag";
    mouse(QEvent::MouseButtonRelease);
    EXPECT_EQ(view.grab().toImage(), marked);
    Send<QWheelEvent>(view, QPointF{reading}, QPointF{reading}, QPoint{}, QPoint{0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    const QImage zoomed = view.grab().toImage();
    Send<QEvent>(view, QEvent::Leave);
    EXPECT_NE(view.grab().toImage(), zoomed) << "marked there too";
    view.ShowEverything();
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

class SharpPlots : public testing::Test
{
    const test::ScopedVariable m_scale{"QT_SCALE_FACTOR", "2"};
    const test::ScopedVariable m_platform{"QT_QPA_PLATFORM", "offscreen"};
    int m_count = 1;
    char m_name[10] = "plot_test";
    char* m_words[2] = {m_name, nullptr};
    const QApplication m_application{m_count, m_words};
};

TEST_F(SharpPlots, UseEveryPixelOfAScreen)
{
    Plot plot{{Numbers}, 0};
    plot.panels[0].curves = {CurveOf(7), CurveOf(7)};
    PlotView view{plot};
    view.resize(640, 400);
    view.show();
    const QImage picture = view.grab().toImage();
    ASSERT_EQ(picture.size(), QSize(1280, 800));
    int uneven = 0; // squares of 2 x 2 pixels that are not of one colour
    for (int y = 0; y < 800; y += 2) {
        for (int x = 0; x < 1280; x += 2) {
            const QRgb first = picture.pixel(x, y);
            uneven += picture.pixel(x + 1, y) != first || picture.pixel(x, y + 1) != first ? 1 : 0;
        }
    }
    EXPECT_GT(uneven, 1000);

    StyleCheckDialog dialog{plot, [](const std::vector<CurvePlace>&) {}, &view};
    dialog.BringUp();
    const auto& list = *dialog.findChild<QTreeWidget*>();
    ASSERT_EQ(list.topLevelItemCount(), 1);
    const QImage sample = list.topLevelItem(0)->icon(1).pixmap(list.iconSize(), 2).toImage();
    const QRect right{sample.width() * 3 / 4, 0, sample.width() / 4, sample.height()};
    EXPECT_NE(Text(sample, right).find('-'), std::string::npos) << "a line from end to end";
}

TEST_F(Plots, HaveAWindowOfTheirOwn)
{
    const Plot plot{{Numbers}, 0};
    PlotWindow window{plot};
    EXPECT_EQ(window.width(),
              std::min(GoodSize(1).width(), window.screen()->availableSize().width() * 9 / 10));
    window.show();
    EXPECT_EQ(window.focusWidget(), window.centralWidget()) << "the keys are the plot's";
    EXPECT_TRUE(window.statusBar()->isVisible() && window.windowTitle() == "Curves");
    for (const auto& [key, isShown] : {std::pair(Qt::Key_A, true), {Qt::Key_Escape, false}}) {
        QKeyEvent press{QEvent::KeyPress, key, Qt::NoModifier};
        QCoreApplication::sendEvent(&window, &press);
        EXPECT_EQ(window.isVisible(), isShown);
        EXPECT_EQ(press.isAccepted(), !isShown);
    }
}

} // namespace
} // namespace atlashost
