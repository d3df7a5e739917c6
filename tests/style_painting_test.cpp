// The picture of a style: symbols and lines, pixel by pixel.
#include "support/Picture.h"

#include <afxwin.h>
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <model/LineDef.h>

namespace
{

using test::gapColor;
using test::ink;
using test::Picture;

constexpr int largestSize = 25;
constexpr int side = 32;
constexpr int middle = side / 2;
constexpr int shapeCount = 10;
const CRect cell(0, 0, side, side);

enum Shape { none, cross, triangle, triangle2, square, plus, asterisk, diamond, circle, point };
enum Fill { filled, empty, withDot };

k_LineDef& Symbol(k_LineDef& style, int shape, int fill, int size)
{
    style.SymbolShape = static_cast<short>(shape);
    style.SymbolFill = static_cast<short>(fill);
    style.SymbolSize = static_cast<short>(size);
    style.SymbolColor = ink;
    style.LineColor = gapColor;
    return style;
}

void DrawSymbol(Picture& picture, int shape, int fill, int size, const RECT& rect = cell)
{
    k_LineDef style;
    EXPECT_EQ(Symbol(style, shape, fill, size).DrawSymbol(&picture.Dc(), rect), 0);
}

struct SymbolPicture : Picture {
    SymbolPicture(int shape, int fill, int size) : Picture(side, side)
    {
        DrawSymbol(*this, shape, fill, size);
    }
};

class StylePainting : public testing::Test
{
protected:
    const test::WindowColor m_windowColor;
};

// Calls check(shape, fill, size) for all of them.
template <class Check> void ForAllSymbols(const Check& check)
{
    for (int shape = none; shape < shapeCount; ++shape) {
        for (int fill = filled; fill <= withDot; ++fill) {
            for (int size = 0; size <= largestSize; ++size) {
                check(shape, fill, size);
                if (testing::Test::HasFailure())
                    GTEST_FAIL() << "shape " << shape << ", fill " << fill << ", size " << size;
            }
        }
    }
}

bool IsFlooded(int shape, int fill)
{
    return fill == filled && (shape == triangle || shape == triangle2 || shape == square || shape == diamond);
}

// The shapes side by side.
std::string Strip(int fill, int size, int width, int last = point)
{
    Picture picture(width * last, width);
    for (int shape = cross; shape <= last; ++shape)
        DrawSymbol(picture, shape, fill, size, CRect((shape - 1) * width, 0, shape * width, width));
    return picture.Text();
}

TEST_F(StylePainting, ShowsEveryShapeAndFill)
{
    EXPECT_EQ(Strip(filled, 5, 6), "......................................................\n"
                                   ".#...#...#...#####.####....#...#.#.#..###...##........\n"
                                   "..#.#....#...#####.####....#....###..#####.####...##..\n"
                                   "...#....###...###..####..####..####...###..####...##..\n"
                                   "..#.#...###...###..####....#....###...###...##........\n"
                                   ".......#####...#.......................#..............\n");
    EXPECT_EQ(Strip(empty, 8, 10),
              "..........................................................................................\n"
              ".#.......#.....#.....#########.########......#.....#...#...#....###......####.............\n"
              "..#.....#......#.....#.......#.#      #......#......#..#..#...##...##...#    #............\n"
              "...#...#......#.#.....#.....#..#      #......#.......#.#.#...#.......#.#      #.....##....\n"
              "....#.#.......#.#.....#.....#..#      #......#........###.....#.....#..#      #....####...\n"
              ".....#.......#...#.....#...#...#      #..########..########...#.....#..#      #....####...\n"
              "....#.#......#...#.....#...#...#      #......#........###......#...#...#      #.....##....\n"
              "...#...#....#.....#.....#.#....#      #......#.......#.#.#......#.#.....#    #............\n"
              "..#.....#...#.....#.....#.#....########......#......#..#..#.....#.#......####.............\n"
              "...........#########.....#.......................................#........................\n");
    EXPECT_EQ(
        Strip(withDot, 10, 12, circle),
        "................................................................................................\n"
        ".#.........#......#......###########.##########.......#......#....#....#......#.........####....\n"
        "..#.......#.......#......#.........#.#        #.......#.......#...#...#.....##.##.....##    ##..\n"
        "...#.....#.......#.#......#.......#..#        #.......#........#..#..#....##.....##...#      #..\n"
        "....#...#........###......#..##...#..#   ##   #......##.........###.#....#...##....#.#   ##   #.\n"
        ".....#.#........#####......#####.#...#  ####  #.....####........####......#.####..#..#  ####  #.\n"
        "......#.........#####......#####.#...#  ####  #..##########..##########...#.####..#..#  ####  #.\n"
        ".....#.#.......#.##..#......###.#....#   ##   #......##..........###.......#.##..#...#   ##   #.\n"
        "....#...#......#.....#......#...#....#        #.......#.........#.#.#.......#...#.....#      #..\n"
        "...#.....#....#.......#......#.#.....#        #.......#........#..#..#.......#.#......##    ##..\n"
        "..#.......#...#.......#......#.#.....##########.......#.......#...#...#......#.#........####....\n"
        ".............###########......#...............................................#.................\n");
}

TEST_F(StylePainting, ReachesAsFarAsItsSize)
{
    // How many pixels the shape reaches past half its size at the right and at the bottom.
    const CSize both(1, 1);
    const CSize past[] = {{0, 0}, {1, 0}, both, both, {0, 0}, {0, 0}, {1, 0}, both, {0, 0}, {0, 0}};
    ForAllSymbols([&](int shape, int fill, int size) {
        const SymbolPicture picture(shape, fill, size);
        EXPECT_EQ(picture, SymbolPicture(shape, fill, size / 2 * 2)); // sizes go in pairs
        const int half = shape == none ? 0 : shape == point ? size / 4 : size / 2;
        const int low = middle - half;
        const int high = middle + half;
        if (half > 0)
            EXPECT_EQ(picture.Painted(), CRect(low, low, high + past[shape].cx, high + past[shape].cy))
                << picture;
        else if (IsFlooded(shape, fill)) // nothing holds the colour in
            EXPECT_EQ(picture.Count('#'), side * side);
        else
            EXPECT_TRUE(picture.Painted().IsRectEmpty()) << picture;
    });
}

TEST_F(StylePainting, DotsTheShapesThatHaveOne)
{
    for (int shape = none; shape < shapeCount; ++shape) {
        for (int size = 0; size <= largestSize; ++size) {
            const SymbolPicture plain(shape, empty, size);
            const SymbolPicture dotted(shape, withDot, size);
            const SymbolPicture dot(point, withDot, size);
            const bool hasDot = shape != none && shape != cross;
            for (int y = 0; y < side; ++y) {
                for (int x = 0; x < side; ++x)
                    ASSERT_EQ(dotted.At(x, y), hasDot && dot.At(x, y) == '#' ? '#' : plain.At(x, y))
                        << dotted;
            }
        }
    }
}

// Fills, hides or shows the line beneath; a filled shape is filled on both sides of a line of its own colour.
TEST_F(StylePainting, LiesOverTheLine)
{
    for (const int shape : {triangle, triangle2, square, diamond, circle}) {
        const bool isOpen = shape == triangle || shape == triangle2 || shape == diamond;
        for (const auto& [fill, lineColor] :
             {std::pair(filled, gapColor), {filled, ink}, {empty, gapColor}}) {
            for (int size = 6; size <= largestSize; ++size) {
                Picture picture(side, side);
                k_LineDef style;
                Symbol(style, shape, fill, size).LineColor = lineColor;
                style.DrawLine(&picture.Dc(), cell);
                style.DrawSymbol(&picture.Dc(), cell);
                for (int y = middle - size / 2; y < middle + size / 2; ++y) {
                    std::string row = picture.Text().substr(static_cast<std::size_t>(y * (side + 1)), side);
                    row.erase(0, row.find('#'));
                    row.erase(row.rfind('#') + 1);
                    const std::string outside = y == middle ? "-" : ".";
                    const std::string within = fill == filled ? "#" : isOpen ? outside : " ";
                    ASSERT_EQ(row.find_first_not_of("#" + within), std::string::npos) << picture;
                }
            }
        }
    }
}

TEST_F(StylePainting, TakesAnyNumber)
{
    for (const int fill : {-1, 3, 32767}) {
        for (const int shape : {triangle, triangle2, square, diamond})
            EXPECT_EQ(SymbolPicture(shape, fill, 20), SymbolPicture(shape, empty, 20));
        EXPECT_EQ(SymbolPicture(circle, fill, 20), SymbolPicture(circle, filled, 20));
    }
    for (const int shape : {-32768, -1, 10, 32767})
        EXPECT_TRUE(SymbolPicture(shape, filled, 20).Painted().IsRectEmpty());
    for (const int size : {-32768, -32767, 32767}) {
        for (int shape = none; shape < shapeCount; ++shape) {
            Picture picture(side, side);
            for (int i = 0; i < 100; ++i)
                DrawSymbol(picture, shape, i % 3, size, {-20000 * i, -20000, 20000 * i, 20000});
        }
        EXPECT_EQ(SymbolPicture(plus, filled, size).Count('#'), 2 * side - 1);
    }
}

TEST_F(StylePainting, DrawsEveryLineStyleAndWidth)
{
    const std::string patterns[] = {
        "############################", "##################------####", "###---###---###---###---###-",
        "#########------###------####", "#########---###---###---####", "                            ",
        "############################",
    };
    const CRect sample(8, 3, 36, 27); // its middle is row 15
    constexpr int pictureWidth = 44;
    for (int lineStyle = 0; lineStyle < 7; ++lineStyle) {
        for (int width = 0; width <= 10; ++width) {
            for (const int mode : {OPAQUE, TRANSPARENT}) {
                Picture picture(pictureWidth, side);
                picture.Dc().SetBkMode(mode);
                picture.Dc().SetBkColor(gapColor);
                k_LineDef style;
                style.LineStyle = static_cast<short>(lineStyle);
                style.LineWidth = static_cast<short>(width);
                style.LineColor = ink;
                EXPECT_EQ(style.DrawLine(&picture.Dc(), sample), 0);
                const bool isWide = width > 1;
                std::string expected = patterns[isWide && lineStyle != PS_NULL ? PS_SOLID : lineStyle];
                if (mode == TRANSPARENT) // the band beneath shows
                    std::ranges::replace(expected, '-', ' ');
                EXPECT_EQ(picture.Text().substr(15 * (pictureWidth + 1) + 8, 28), expected);
                const int before = width / 2;
                const int after = isWide ? (width - 1) / 2 : 0;
                EXPECT_EQ(picture.Painted(), CRect(8 - before, 15 - before, 36 + after, 16 + after))
                    << picture;
            }
        }
    }
}

TEST_F(StylePainting, IsOnlyCutByTheClip)
{
    const CRect aroundTheMiddle[] = {{middle - 2, 0, side, side},
                                     {0, middle - 1, side, side},
                                     {0, 0, middle + 3, side},
                                     {0, 0, side, middle + 2}};
    const CRect besideTheMiddle[] = {{middle + 3, 0, side, side},
                                     {0, middle + 4, side, side},
                                     {0, 0, middle - 4, side},
                                     {0, 0, side, middle - 3}};
    ForAllSymbols([&](int shape, int fill, int size) {
        const auto draw = [&](Picture& picture) {
            k_LineDef style;
            Symbol(style, shape, fill, size).LineWidth = static_cast<short>(size / 2);
            style.LineStyle = static_cast<short>(size % 6);
            if (fill != filled)
                style.DrawLine(&picture.Dc(), CRect(4, 4, 28, 28));
            style.DrawSymbol(&picture.Dc(), cell);
        };
        const auto check = [&](const CRect& clip) {
            Picture whole(side, side);
            Picture clipped(side, side, clip);
            draw(whole);
            draw(clipped);
            whole.CutTo(clip);
            EXPECT_EQ(clipped, whole);
        };
        for (const CRect& clip : aroundTheMiddle)
            check(clip);
        for (const CRect& clip : besideTheMiddle) {
            if (!IsFlooded(shape, fill)) // a fill begins in the middle, or not at all
                check(clip);
        }
    });
}

TEST_F(StylePainting, LeavesNothingBehind)
{
    Picture picture(side, side);
    CPen pen(PS_DOT, 1, gapColor);
    CBrush brush(gapColor);
    picture.Dc().SelectObject(&pen);
    picture.Dc().SelectObject(&brush);
    const int before = gdi::LiveObjects();
    ForAllSymbols([&](int shape, int fill, int size) {
        k_LineDef style;
        Symbol(style, shape, fill, size).DrawLine(&picture.Dc(), cell);
        style.DrawSymbol(&picture.Dc(), cell);
        EXPECT_EQ(gdi::LiveObjects(), before);
        EXPECT_EQ(picture.Dc().SelectObject(&pen), &pen);
        EXPECT_EQ(picture.Dc().SelectObject(&brush), &brush);
    });
}

TEST_F(StylePainting, RaisesWhatItCannotMake)
{
    Picture picture(side, side);
    std::vector<std::unique_ptr<CBrush>> brushes;
    while (gdi::LiveObjects() < gdi::objectLimit)
        brushes.push_back(std::make_unique<CBrush>(ink));
    k_LineDef style;
    Symbol(style, square, empty, 10);
    EXPECT_THROW(style.DrawLine(&picture.Dc(), cell), CResourceException*);
    EXPECT_THROW(style.DrawSymbol(&picture.Dc(), cell), CResourceException*);
    EXPECT_TRUE(picture.Painted().IsRectEmpty());
    brushes.pop_back(); // room for the pen alone
    picture.Dc().SelectObject(brushes.front().get());
    EXPECT_EQ(style.DrawSymbol(&picture.Dc(), cell), 0);
    EXPECT_EQ(picture.Count('#'), 10 * 10); // the brush of the context fills it
    EXPECT_EQ(picture.Dc().SelectObject(brushes.back().get()), brushes.front().get());
}

} // namespace
