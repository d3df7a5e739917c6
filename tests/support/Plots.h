// Plots of the sample host, and what is read off their pictures.
#pragma once

#include "PlotLayout.h"

#include <QApplication>
#include <QImage>

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace atlashost
{

inline const double Missing = std::nan("");
inline const styleatlas::Style Crosses{
    {0x0000FF}, styleatlas::SymbolShape::Cross, 8, styleatlas::SymbolFill::Empty,
    {0xFF0000}, styleatlas::LineStyle::Solid,   1};

// A row of text for each row of the rectangle: red "#", blue "-", white " ", other colours ".".
inline std::string Text(const QImage& image, QRect rect)
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

inline const Panel Numbers{"Title", "V", TimeKind::Number, "t", {0, 6}, {1, 3}, {}};

inline Curve CurveOf(std::size_t count)
{
    std::vector<Reading> readings;
    for (std::size_t i = 0; i < count; ++i)
        readings.push_back({6.0 * static_cast<double>(i) / static_cast<double>(count), 2});
    return {"file", Crosses, readings, count, {}, 0};
}

// Sends an event made of the arguments.
template <class Event, class... Arguments> void Send(QWidget& widget, Arguments... arguments)
{
    Event event{arguments...};
    QCoreApplication::sendEvent(&widget, &event);
}

// The program that windows need.
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

} // namespace atlashost
