// Drawing: the pixels of every primitive, clipping.
#include "support/Picture.h"

#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

namespace
{

using namespace test;

// The context keeps them.
void Select(CDC& dc, int style, int width)
{
    CPen pen(style, width, ink);
    CBrush brush(filling);
    dc.SelectObject(&pen);
    dc.SelectObject(&brush);
}

void DrawLine(Picture& picture, CPoint from, CPoint to, int style = PS_SOLID, int width = 1)
{
    Select(picture.Dc(), style, width);
    picture.Dc().MoveTo(from.x, from.y);
    picture.Dc().LineTo(to.x, to.y);
}

// The points of a square with this side.
std::vector<CPoint> PointsOf(int side)
{
    std::vector<CPoint> points;
    for (int i = 0; i < side * side; ++i)
        points.emplace_back(i % side, i / side);
    return points;
}

// Whether the pixel is the nearest one at a step of the line, without its end.
bool IsOnWay(CPoint pixel, CPoint from, CPoint to)
{
    const CSize way(to.x - from.x, to.y - from.y);
    const CSize part(pixel.x - from.x, pixel.y - from.y);
    const int across = part.cx * way.cy - part.cy * way.cx;
    const int along = part.cx * way.cx + part.cy * way.cy;
    return 2 * std::abs(across) <= std::max(std::abs(way.cx), std::abs(way.cy)) && along >= 0 &&
           along < way.cx * way.cx + way.cy * way.cy;
}

TEST(ThinLines, HaveOnePixelAStepAndNotTheirEnd)
{
    constexpr int reach = 9;
    constexpr int side = 2 * reach + 1;
    const CPoint middle(reach, reach);
    for (const CPoint to : PointsOf(side)) {
        Picture there(side, side);
        DrawLine(there, middle, to);
        const int steps = std::max(std::abs(to.x - reach), std::abs(to.y - reach));
        ASSERT_EQ(there.Count('#'), steps) << there;
        // Reversed and mirrored lines have the same pixels, except for the end point.
        Picture back(side, side);
        DrawLine(back, to, middle);
        Picture mirrored(side, side);
        DrawLine(mirrored, middle, {2 * reach - to.x, to.y});
        for (const CPoint pixel : PointsOf(side)) {
            const char seen = there.At(pixel.x, pixel.y);
            ASSERT_TRUE(seen == '.' || IsOnWay(pixel, middle, to)) << there;
            ASSERT_TRUE(pixel == middle || pixel == to || back.At(pixel.x, pixel.y) == seen) << there << back;
            ASSERT_EQ(mirrored.At(2 * reach - pixel.x, pixel.y), seen) << there << mirrored;
        }
    }
}

TEST(WideLines, HaveRoundEndsAndNoDashes)
{
    const std::tuple<int, CPoint, const char*> cases[] = {
        {2, {9, 4}, "............\n..##........\n..#####.....\n....#####...\n.......##...\n............\n"},
        {4, {6, 2}, "..####......\n.######.....\n.######.....\n..####......\n............\n............\n"},
        {5, {9, 4}, "..###.......\n.#######....\n.#########..\n.##########.\n..#########.\n....#######.\n"}};
    for (const auto& [width, to, text] : cases) {
        Picture picture(12, 6);
        DrawLine(picture, {3, 2}, to, PS_DOT, width);
        EXPECT_EQ(picture.Text(), text);
    }
}

TEST(Shapes, HoldThePixelsWhoseCentresTheyHold)
{
    for (const CPoint box : PointsOf(25)) {
        for (const int pen : {PS_SOLID, PS_NULL}) {
            Picture picture(50, 25);
            Select(picture.Dc(), pen, 1);
            picture.Dc().Ellipse(box.x, 0, 0, box.y); // sides exchanged
            picture.Dc().Rectangle(CRect(25 + box.x, 0, 25, box.y));
            const int across = box.x - (pen == PS_NULL);
            const int down = box.y - (pen == PS_NULL);
            const auto isInBox = [=](int x, int y) { return x >= 0 && x < across && y >= 0 && y < down; };
            const auto isInEllipse = [=](int x, int y) {
                const int dx = (2 * x + 1 - across) * down;
                const int dy = (2 * y + 1 - down) * across;
                return isInBox(x, y) && dx * dx + dy * dy <= across * across * down * down;
            };
            const auto kindAt = [=](auto holds, CPoint p) {
                const bool isInner =
                    holds(p.x - 1, p.y) && holds(p.x + 1, p.y) && holds(p.x, p.y - 1) && holds(p.x, p.y + 1);
                return !holds(p.x, p.y) ? '.' : isInner || pen == PS_NULL ? 'o' : '#';
            };
            for (const CPoint p : PointsOf(25)) {
                ASSERT_EQ(picture.At(p.x, p.y), kindAt(isInEllipse, p)) << picture;
                ASSERT_EQ(picture.At(25 + p.x, p.y), kindAt(isInBox, p)) << picture;
            }
        }
    }
}

TEST(FloodFill, StopsAtTheBorderColourAlone)
{
    // In a closed line whose pixels touch at corners, a pixel of another colour. Null: nothing is done.
    const std::tuple<CPoint, COLORREF, const char*> cases[] = {
        {{3, 3}, ink, "...#...\n..#o#..\n.#ooo#.\n#ooooo#\n.#ooo#.\n..#o#..\n...#...\n"},
        {{0, 0}, ink, "ooo#...\noo#.#..\no#...#.\n#..-..#\n.#...#.\n..#.#..\n...#...\n"},
        {{1, 1}, gapColor, "ooooooo\nooooooo\nooooooo\nooo-ooo\nooooooo\nooooooo\nooooooo\n"},
        {{3, 0}, ink, nullptr},
        {{3, -1}, ink, nullptr}};
    for (const auto& [seed, border, text] : cases) {
        Picture picture(7, 7);
        constexpr POINT corners[] = {{3, 0}, {0, 3}, {3, 6}, {6, 3}, {3, 0}};
        for (int i = 0; i < 4; ++i)
            DrawLine(picture, corners[i], corners[i + 1]);
        picture.Dc().FillSolidRect(3, 3, 1, 1, gapColor);
        const std::string before = picture.Text();
        Select(picture.Dc(), PS_SOLID, 1);
        EXPECT_EQ(picture.Dc().FloodFill(seed.x, seed.y, border) != FALSE, text != nullptr);
        EXPECT_EQ(picture.Text(), text != nullptr ? text : before);
    }
}

TEST(FloodFill, StopsAtWhatIsDrawnWithinARectangle)
{
    Picture picture(8, 5);
    Select(picture.Dc(), PS_SOLID, 1);
    picture.Dc().Rectangle(1, 0, 8, 5);
    picture.Dc().FillSolidRect(4, 1, 1, 3, ink);
    CBrush brush(gapColor);
    picture.Dc().SelectObject(&brush);
    EXPECT_TRUE(picture.Dc().FloodFill(2, 2, ink));
    EXPECT_EQ(picture.Text(), ".#######\n.#--#oo#\n.#--#oo#\n.#--#oo#\n.#######\n");
}

// Draws every primitive, around and beyond the picture.
void DrawEverything(CDC& dc, std::mt19937& random)
{
    std::uniform_int_distribution<int> coordinate(-12, 36);
    const auto any = [&] { return coordinate(random); };
    for (int round = 0; round < 10; ++round) {
        Select(dc, round % 7, round % 3 == 0 ? any() / 4 : 1);
        dc.SetBkMode(round % 2 == 0 ? OPAQUE : TRANSPARENT);
        dc.MoveTo(any(), any());
        dc.LineTo(any(), any());
        dc.LineTo(any(), any());
        dc.Rectangle(any(), any(), any(), any());
        dc.Ellipse(any(), any(), any(), any());
        CRect rect(any(), any(), any(), any());
        dc.DrawEdge(rect, round % 2 == 0 ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT);
        dc.DrawFrameControl(rect, DFC_SCROLL, DFCS_SCROLLDOWN | (round % 2 == 0 ? DFCS_PUSHED : 0));
        dc.DrawFocusRect(rect);
    }
}

TEST(Clipping, OnlyCuts)
{
    constexpr int side = 24;
    for (const CRect& clip :
         {CRect(5, 7, 24, 24), CRect(0, 0, 13, 11), CRect(6, 6, 9, 20), CRect(9, 9, 9, 9)}) {
        for (unsigned seed = 0; seed < 40; ++seed) {
            Picture whole(side, side);
            Picture clipped(side, side, clip);
            for (Picture* const picture : {&whole, &clipped}) {
                std::mt19937 random(seed);
                DrawEverything(picture->Dc(), random);
            }
            for (const auto& [x, y] : PointsOf(side)) {
                const gdi::Pixel seen = ::PtInRect(&clip, {x, y}) ? whole.PixelAt(x, y) : gdi::ToPixel(paper);
                ASSERT_EQ(clipped.PixelAt(x, y), seen) << whole << clipped;
            }
        }
    }
}

TEST(Clipping, MakesShapesOfAnySizeCheap)
{
    Picture picture(20, 20);
    constexpr int reach = 0x7FFFFFFF;
    const CRect all(-reach, -reach, reach, reach);
    for (int round = 0; round < 600; ++round) {
        DrawLine(picture, {-reach, -reach}, {reach, reach}, PS_DOT, std::array{1, 32767, -32768}[round % 3]);
        picture.Dc().Ellipse(-reach, -reach, reach, reach);
        picture.Dc().Rectangle(all);
        picture.Dc().DrawFocusRect(all);
    }
    // The far edge of an ellipse as it passes through the picture, which is flat there.
    constexpr int far = 65534;
    Select(picture.Dc(), PS_SOLID, 1);
    picture.Dc().FillSolidRect(0, 0, 20, 20, paper);
    picture.Dc().Ellipse(10 - far, 5, 10 + far, 5 + 2 * far);
    EXPECT_EQ(picture.Count('.'), 20 * 5);
    EXPECT_EQ(picture.Count('#'), 20);
}

TEST(FocusRect, GoesWhenDrawnAgain)
{
    Picture picture(9, 6);
    DrawLine(picture, {0, 0}, {9, 6}, PS_SOLID, 3);
    const std::string before = picture.Text();
    picture.Dc().DrawFocusRect(CRect(1, 1, 8, 5));
    EXPECT_EQ(picture.Count('?'), 9); // of the 18 pixels along the inside
    picture.Dc().DrawFocusRect(CRect(1, 1, 8, 5));
    EXPECT_EQ(picture.Text(), before);
}

} // namespace
