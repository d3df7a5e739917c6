// Drawing on screens of any scale, and symbols that a clip box cuts.
#include "support/Picture.h"

#include <afxwin.h>
#include <gtest/gtest.h>
#include <model/LineDef.h>

namespace
{

using namespace test;

constexpr int side = 70; // of a picture, in units
constexpr int shapeCount = 10;

struct Style : k_LineDef {
    Style(int shape, int fill, int size)
    {
        SymbolShape = static_cast<short>(shape);
        SymbolFill = static_cast<short>(fill);
        SymbolSize = static_cast<short>(size);
        LineWidth = static_cast<short>(1 + size % 3);
        SymbolColor = LineColor = ink;
    }
};

struct StylePicture : Picture {
    StylePicture(const k_LineDef& style, const CRect& clip, const gdi::PixelGrid& grid)
        : Picture(side, side, clip, grid)
    {
        style.DrawLine(&Dc(), {0, 0, side, side});
        style.DrawSymbol(&Dc(), {0, 0, side, side});
    }
};

// Screens of a scale whose windows begin anywhere between two pixels.
class Scale : public testing::TestWithParam<double>
{
protected:
    void OnEachGrid(const std::function<void(const gdi::PixelGrid&)>& check)
    {
        for (const double left : {0.0, 0.25, 0.5, 0.75}) {
            for (const double top : {0.0, 0.5}) {
                check({GetParam(), left, top});
                if (HasFailure())
                    GTEST_FAIL() << "at " << left << ", " << top;
            }
        }
    }
    int Thickness() const { return static_cast<int>(GetParam()); }
};

TEST_P(Scale, LeavesNoPixelOutAndGivesEveryLineOneThickness)
{
    OnEachGrid([&](const gdi::PixelGrid& grid) {
        Picture tiles(side, side, {0, 0, side, side}, grid);
        for (int x = 0; x < side; x += 7)
            tiles.Dc().FillSolidRect(x, 0, 7, side, x % 2 == 0 ? ink : filling);
        EXPECT_EQ(tiles.Count('.'), 0);

        CPen pen(PS_SOLID, 1, ink);
        CBrush brush(filling);
        for (int x = 0; x < 8; ++x) {
            Picture picture(side, side, {0, 0, side, side}, grid);
            picture.Dc().SelectObject(&pen);
            picture.Dc().SelectObject(&brush);
            picture.Dc().Rectangle(x, x + 3, x + 20, x + 30);
            const CRect box = picture.Painted();
            EXPECT_EQ(box, CRect(static_cast<int>(grid.X(x)), static_cast<int>(grid.Y(x + 3)),
                                 static_cast<int>(grid.X(x + 20)), static_cast<int>(grid.Y(x + 30))));
            const int within = (box.Width() - 2 * Thickness()) * (box.Height() - 2 * Thickness());
            EXPECT_EQ(picture.Count('o'), within) << picture;
            EXPECT_EQ(picture.Count('#'), box.Width() * box.Height() - within);

            Picture line(side, side, {0, 0, side, side}, grid);
            line.Dc().FillSolidRect(x, x, side - x, 1, ink);
            line.Dc().SelectObject(&pen);
            line.Dc().MoveTo(0, 40 + x);
            line.Dc().LineTo(side, 40 + x);
            const int length = line.Size().cx;
            EXPECT_EQ(line.Count('#'), (2 * length - static_cast<int>(grid.X(x))) * Thickness());

            Picture upright(side, side, {0, 0, side, side}, grid);
            upright.Dc().FillSolidRect(x, 0, 1, side, ink);
            EXPECT_EQ(upright.Painted().Width(), Thickness());
        }
    });
}

TEST_P(Scale, KeepsTheInkWithinTheOutline)
{
    const auto count = [](int shape, int fill, int size, const gdi::PixelGrid& grid) {
        Picture picture(side, side, {0, 0, side, side}, grid);
        Style(shape, fill, size).DrawSymbol(&picture.Dc(), {0, 0, side, side});
        const CRect box = picture.Painted();
        const double scale = grid.Scale();
        EXPECT_LE(box.Width(), (size / 2 * 2 + 2) * scale) << picture;
        EXPECT_GE(box.Width(), (shape == 9 ? size / 4 * 2 : size / 2 * 2 - 1) * scale - 1) << picture;
        return picture.Count('#');
    };
    OnEachGrid([&](const gdi::PixelGrid& grid) {
        for (int shape = 1; shape < shapeCount; ++shape) {
            for (int size = 6; size <= 60; size += 3) {
                const int filled = count(shape, 0, size, grid);
                const int empty = count(shape, 1, size, grid);
                const bool hasInside = shape == 2 || shape == 3 || shape == 4 || shape == 7 || shape == 8;
                if (hasInside)
                    EXPECT_GT(filled, empty) << shape << ' ' << size;
                else
                    EXPECT_EQ(filled, empty) << shape << ' ' << size;
            }
        }
    });
}

TEST_P(Scale, CutsSymbolsAtTheClipBox)
{
    const gdi::PixelGrid grid(GetParam(), 0, 0);
    for (int i = 0; i < shapeCount * 3 * 59; i += GetParam() == 1 ? 1 : 17) {
        const Style style(i % shapeCount, i / shapeCount % 3, 2 + i / shapeCount / 3);
        const StylePicture whole(style, {0, 0, side, side}, grid);
        for (int cut = 1 + i % 9; cut < side; cut += 9) {
            for (const CRect& clip : {CRect(cut, 0, side, side), CRect(0, cut, side, side),
                                      CRect(0, 0, cut, side), CRect(0, 0, side, cut)}) {
                const StylePicture shown(style, clip, grid);
                const gdi::Box pixels = grid.Pixels(gdi::ToBox(clip));
                for (auto y = pixels.Top; y < pixels.Bottom; ++y) {
                    for (auto x = pixels.Left; x < pixels.Right; ++x)
                        ASSERT_EQ(shown.PixelAt(static_cast<int>(x), static_cast<int>(y)),
                                  whole.PixelAt(static_cast<int>(x), static_cast<int>(y)))
                            << style.SymbolShape << ' ' << style.SymbolFill << ' ' << style.SymbolSize
                            << " cut at " << cut << shown << whole;
                }
            }
        }
    }
}

TEST(FloodFill, BesideAFigureThatIsCutIsThatOfTheCanvas)
{
    Picture picture(side, side);
    CPen pen(PS_SOLID, 1, ink);
    CBrush brush(filling);
    picture.Dc().SelectObject(&pen);
    picture.Dc().SelectObject(&brush);
    picture.Dc().MoveTo(-5, 3);
    for (const CPoint& corner : {CPoint(5, 3), CPoint(0, 9), CPoint(-5, 3)})
        picture.Dc().LineTo(corner.x, corner.y);
    EXPECT_TRUE(picture.Dc().FloodFill(side - 1, side - 1, ink));
    EXPECT_EQ(picture.At(20, 20), 'o');
    EXPECT_EQ(picture.At(0, 4), '.');
}

INSTANTIATE_TEST_SUITE_P(Screens, Scale, testing::Values(1, 1.25, 1.5, 1.75, 2, 3));

} // namespace
