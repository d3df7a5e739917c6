// What a host of Qt paints with the binding is what the library paints.
#include "support/Picture.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <afxwin.h>
#include <algorithm>
#include <gtest/gtest.h>
#include <model/LineDef.h>
#include <styleatlas-qt.h>

namespace
{

constexpr int side = 80;
constexpr int middle = side / 2;
constexpr int sorts = 10 * 3; // of symbols, by shape and fill

struct Symbol : k_LineDef {
    Symbol(int sort, int size)
    {
        SymbolShape = static_cast<short>(sort % 10);
        SymbolFill = static_cast<short>(sort / 10);
        SymbolSize = static_cast<short>(size);
    }
};

styleatlas::Style Same(const k_LineDef& style)
{
    return {{style.SymbolColor}, styleatlas::SymbolShape{style.SymbolShape},
            style.SymbolSize,    styleatlas::SymbolFill{style.SymbolFill},
            {style.LineColor},   styleatlas::LineStyle{style.LineStyle},
            style.LineWidth,     style.UseSymbolColor};
}

// Black is the colour that a transparent pixel could be taken for, white that of the paper.
TEST(QtBinding, MakesThePictureOfEachSymbol)
{
    for (const COLORREF color : {COLORREF{0}, test::windowColor, test::ink}) {
        for (int i = 0; i < sorts * 30; ++i) {
            Symbol style(i % sorts, i / sorts);
            style.SymbolColor = color;
            test::Picture painted(side, side);
            style.DrawSymbol(&painted.Dc(), CRect(0, 0, side, side));
            QImage made(side, side, QImage::Format_RGB32);
            made.fill(gdi::ToPixel(test::paper));
            QPainter painter(&made);
            painter.translate(0.4, -0.4);
            styleatlas::DrawSymbol(painter, QPointF(middle, middle), Same(style));
            for (int pixel = 0; pixel < side * side; ++pixel)
                ASSERT_EQ(made.pixel(pixel % side, pixel / side), painted.PixelAt(pixel % side, pixel / side))
                    << "style " << i << " pixel " << pixel;
        }
    }
}

// Where a symbol and what is around it have one colour for a pixel in each direction.
TEST(QtBinding, DrawsTheSameSymbolsAsLinesAndAreas)
{
    constexpr int scale = 8;
    for (int i = 0; i < sorts * 4; ++i) {
        const Symbol style(i % sorts, 6 + i / sorts * 8);
        test::Picture painted(side, side);
        style.DrawSymbol(&painted.Dc(), CRect(0, 0, side, side));
        QImage made(side * scale, side * scale, QImage::Format_RGB32);
        made.fill(gdi::ToPixel(test::paper));
        QPainter painter(&made);
        painter.scale(scale, scale);
        styleatlas::DrawSymbol(painter, QPointF(middle, middle), Same(style));
        for (int pixel = 0; pixel < side * side; ++pixel) {
            const int x = pixel % side;
            const int y = pixel / side;
            const gdi::Pixel color = painted.PixelAt(x, y);
            bool isEven = true;
            for (int near = 0; near < 9; ++near)
                isEven = isEven && painted.PixelAt(std::clamp(x + near % 3 - 1, 0, side - 1),
                                                   std::clamp(y + near / 3 - 1, 0, side - 1)) == color;
            ASSERT_TRUE(!isEven || made.pixel(x * scale + scale / 2, y * scale + scale / 2) == color)
                << "style " << i << " at " << x << ',' << y;
        }
    }
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&file);
    QPainter painter(&pdf);
    styleatlas::DrawLegendSample(painter, {0, 0, 4000, 400}, Same(Symbol(8, 40)));
    painter.end();
    EXPECT_FALSE(file.data().contains("/Subtype /Image")) << "of pixels";
}

TEST(QtBinding, ShowsInLegendsWhatTheEditorShows)
{
    Symbol style(8, 30); // higher than the sample
    style.LineColor = RGB(200, 0, 0);
    test::Picture painted(side, 20);
    style.DrawLine(&painted.Dc(), CRect(0, 0, side, 20));
    style.DrawSymbol(&painted.Dc(), CRect(0, 0, side, 20));
    QImage made(side, 40, QImage::Format_RGB32);
    made.fill(gdi::ToPixel(test::paper));
    QPainter painter(&made);
    styleatlas::DrawLegendSample(painter, {0, 10, side, 20}, Same(style));
    for (int i = 0; i < side * 20; ++i) {
        EXPECT_EQ(made.pixel(i % side, 10 + i / side), painted.PixelAt(i % side, i / side)) << i;
    }
    EXPECT_EQ(made.pixel(middle, 9), gdi::ToPixel(test::paper)) << "cut off";
}

TEST(QtBinding, MakesThePenOfEachLine)
{
    for (short lineStyle = 0; lineStyle < 7; ++lineStyle) { // the last is unknown
        k_LineDef style;
        style.LineStyle = lineStyle;
        test::Picture painted(side, 3);
        style.DrawLine(&painted.Dc(), CRect(0, 0, side, 3));
        QImage made(side, 3, QImage::Format_RGB32);
        made.fill(Qt::white);
        QPainter painter(&made);
        painter.setPen(styleatlas::LinePen(Same(style)));
        painter.drawLine(0, 1, side, 1);
        for (int x = 0; x < side; ++x)
            EXPECT_EQ(made.pixel(x, 1), painted.PixelAt(x, 1)) << "style " << lineStyle << " at " << x;
    }
}

} // namespace
