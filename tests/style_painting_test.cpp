// The picture of a style: symbols and lines, pixel by pixel.
#include "support/Picture.h"

#include <afxwin.h>
#include <gtest/gtest.h>
#include <model/LineDef.h>

namespace
{

using namespace test;

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
    CPen pen(PS_DOT, 1, gapColor);
    CBrush brush(gapColor);
    picture.Dc().SelectObject(&pen);
    picture.Dc().SelectObject(&brush);
    const int before = gdi::LiveObjects();
    k_LineDef style;
    EXPECT_EQ(Symbol(style, shape, fill, size).DrawSymbol(&picture.Dc(), rect), 0);
    EXPECT_EQ(gdi::LiveObjects(), before);
    EXPECT_EQ(picture.Dc().SelectObject(&pen), &pen);
    EXPECT_EQ(picture.Dc().SelectObject(&brush), &brush);
}

struct SymbolPicture : Picture {
    SymbolPicture(int shape, int fill, int size) : Picture(side, side)
    {
        DrawSymbol(*this, shape, fill, size);
    }
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

// The shapes side by side.
std::string Strip(int fill, int size, int width, int last = point)
{
    Picture picture(width * last, width);
    for (int shape = cross; shape <= last; ++shape)
        DrawSymbol(picture, shape, fill, size, CRect((shape - 1) * width, 0, shape * width, width));
    return picture.Text();
}

TEST(StylePainting, ShowsEveryShapeAndFill)
{
    EXPECT_EQ(Strip(filled, 5, 6), "......................................................\n"
                                   ".#...#...#...#####.####....#...#.#.#..###...##........\n"
                                   "..#.#....#...#####.####....#....###..#####.####...##..\n"
                                   "...#....###...###..####..####..####...###..####...##..\n"
                                   "..#.#...###...###..####....#....###...###...##........\n"
                                   ".......#####...#.......................#..............\n");
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

TEST(StylePainting, ReachesAsFarAsItsSizeAndHasADotIfAskedFor)
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
        else // not even where nothing would hold the colour in
            EXPECT_TRUE(picture.Painted() == CRect()) << picture;
        EXPECT_EQ(SymbolPicture(shape, fill, -size).At(0, 0), '.');
        if (fill == withDot && shape != none && shape != cross) {
            SymbolPicture dotted(shape, empty, size);
            DrawSymbol(dotted, point, withDot, size);
            EXPECT_EQ(picture, dotted);
        }
    });
}

// Fills, hides or shows the line beneath; a filled shape is filled on both sides of a line of its own colour.
TEST(StylePainting, LiesOverTheLine)
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

TEST(StylePainting, TakesAnyNumber)
{
    for (const int fill : {-1, 3}) {
        EXPECT_EQ(SymbolPicture(diamond, fill, 20), SymbolPicture(diamond, empty, 20));
        EXPECT_EQ(SymbolPicture(circle, fill, 20), SymbolPicture(circle, filled, 20));
    }
    for (const int shape : {-1, 10})
        EXPECT_TRUE(SymbolPicture(shape, filled, 20).Painted() == CRect());
    for (const int size : {-32768, 32767}) {
        for (int shape = none; shape < shapeCount; ++shape) {
            Picture picture(side, side);
            for (int i = 0; i < 100; ++i)
                DrawSymbol(picture, shape, i % 3, size, {-20000 * i, -20000, 20000 * i, 20000});
        }
        EXPECT_EQ(SymbolPicture(plus, filled, size).Count('#'), 2 * side - 1);
    }
}

TEST(StylePainting, DrawsEveryLineStyleAndWidth)
{
    const std::string patterns[] = {"############################", "########----########----####",
                                    "###---###---###---###---###-", "######--##--######--##--####",
                                    "#####---##---##---#####---##", "                            ",
                                    "############################"};
    for (int i = 0; i < 7 * 11 * 2; ++i) {
        k_LineDef style;
        style.LineStyle = static_cast<short>(i % 7);
        style.LineWidth = static_cast<short>(i / 7 % 11);
        style.LineColor = ink;
        Picture picture(44, side);
        picture.Dc().SetBkMode(i % 2 == 0 ? OPAQUE : TRANSPARENT);
        picture.Dc().SetBkColor(gapColor);
        CPen pen(PS_DOT, 1, gapColor);
        picture.Dc().SelectObject(&pen);
        const int objects = gdi::LiveObjects();
        EXPECT_EQ(style.DrawLine(&picture.Dc(), {8, 3, 36, 27}), 0); // through row 15
        EXPECT_TRUE(gdi::LiveObjects() == objects && picture.Dc().SelectObject(&pen) == &pen);
        const int width = std::max<int>(style.LineWidth, 1);
        std::string expected = patterns[width > 1 && style.LineStyle != PS_NULL ? PS_SOLID : style.LineStyle];
        if (i % 2 != 0) // the band beneath shows
            std::ranges::replace(expected, '-', ' ');
        EXPECT_EQ(picture.Text().substr(15 * 45 + 8, 28), expected);
        const int before = width / 2 * (width > 1);
        const int after = (width - 1) / 2;
        EXPECT_EQ(picture.Painted(), CRect(8 - before, 15 - before, 36 + after, 16 + after)) << picture;
    }
}

// Of two sides, in the position where they are most alike.
int Difference(const std::string& first, const std::string& second)
{
    constexpr int maxShift = 4;
    int least = side;
    for (int shift = 0; shift <= maxShift; ++shift) {
        const std::size_t count = first.size() - static_cast<std::size_t>(shift);
        int different = 0;
        for (std::size_t i = 0; i < count; ++i)
            different += first[i + first.size() - count] != second[i] ? 1 : 0;
        least = std::min(least, different);
    }
    return least;
}

TEST(StylePainting, MakesLineStylesDifferOnEachSideOfASymbol)
{
    constexpr int width = 47; // of a cell of the tree
    for (const short size : {10, 15}) {
        std::vector<std::string> sides[2];
        for (short line = PS_SOLID; line <= PS_NULL; ++line) {
            k_LineDef style;
            Symbol(style, square, empty, size).LineStyle = line;
            Picture picture(width, side);
            style.DrawLine(&picture.Dc(), {0, 0, width, side});
            style.DrawSymbol(&picture.Dc(), {0, 0, width, side});
            const std::string row = picture.Text().substr(middle * (width + 1), width);
            sides[0].push_back(row.substr(0, row.find('#')));
            sides[1].push_back(row.substr(row.rfind('#') + 1));
        }
        for (const auto& styles : sides) {
            for (const std::string& first : styles) {
                for (const std::string& second : styles)
                    EXPECT_TRUE(&first == &second ||
                                std::min(Difference(first, second), Difference(second, first)) >= 2)
                        << first << " and " << second;
            }
        }
    }
}

} // namespace
