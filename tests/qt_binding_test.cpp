// What a host of Qt paints with the binding is what the library paints.
#include "support/Picture.h"

#include <QPainter>
#include <afxwin.h>
#include <bindings/qt/StylePen.h>
#include <bindings/qt/SymbolPicture.h>
#include <gtest/gtest.h>
#include <model/LineDef.h>

namespace
{

constexpr int side = 80;
constexpr int middle = side / 2;

// Black is the colour that a transparent pixel could be taken for, white that of the paper.
TEST(QtBinding, MakesThePictureOfEachSymbol)
{
    for (const COLORREF color : {COLORREF{0}, test::windowColor, test::ink}) {
        for (int i = 0; i < 10 * 3 * 30; ++i) {
            k_LineDef style;
            style.SymbolShape = static_cast<short>(i % 10);
            style.SymbolFill = static_cast<short>(i / 10 % 3);
            style.SymbolSize = static_cast<short>(i / 30);
            style.SymbolColor = color;
            test::Picture painted(side, side);
            style.DrawSymbol(&painted.Dc(), CRect(0, 0, side, side));
            const auto [image, centre] =
                styleatlas::qt::MakeSymbolPicture({{color},
                                                   styleatlas::SymbolShape{style.SymbolShape},
                                                   style.SymbolSize,
                                                   styleatlas::SymbolFill{style.SymbolFill},
                                                   {}});
            QImage made(side, side, QImage::Format_RGB32);
            made.fill(gdi::ToPixel(test::paper));
            QPainter(&made).drawImage(QPoint(middle, middle) - centre, image);
            for (int pixel = 0; pixel < side * side; ++pixel)
                ASSERT_EQ(made.pixel(pixel % side, pixel / side), painted.PixelAt(pixel % side, pixel / side))
                    << "style " << i << " pixel " << pixel;
        }
    }
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
        painter.setPen(
            styleatlas::qt::MakePen({{}, {}, 0, {}, {style.LineColor}, styleatlas::LineStyle{lineStyle}, 1}));
        painter.drawLine(0, 1, side, 1);
        for (int x = 0; x < side; ++x)
            EXPECT_EQ(made.pixel(x, 1), painted.PixelAt(x, 1)) << "style " << lineStyle << " at " << x;
    }
}

} // namespace
