// Lines one unit wide.
#include "IntegerMath.h"
#include "Rasteriser.h"

#include <algorithm>
#include <cstdlib>

namespace gdi
{

namespace
{

// The line from its upper end down, one pixel of the longer side at each step.
struct Walk {
    Point Start;
    std::int64_t Length; // of the longer side
    std::int64_t Depth;  // of the shorter side
    int MajorStep;
    int MinorStep;
    bool IsSteep;   // the longer side is the vertical one
    bool IsUpwards; // drawn towards the start

    std::int64_t MajorStart() const { return IsSteep ? Start.Y : Start.X; }
    std::int64_t MinorStart() const { return IsSteep ? Start.X : Start.Y; }

    // Half rounds towards the start.
    std::int64_t MinorNumerator(std::int64_t j) const { return 2 * j * Depth + Length - 1; }

    Point At(std::int64_t j) const
    {
        const std::int64_t major = MajorStart() + MajorStep * j;
        const std::int64_t minor = MinorStart() + MinorStep * (MinorNumerator(j) / (2 * Length));
        return IsSteep ? Point{minor, major} : Point{major, minor};
    }

    // The range of steps that are drawn, half-open.
    std::int64_t First() const { return IsUpwards ? 1 : 0; }
    std::int64_t Last() const { return IsUpwards ? Length + 1 : Length; }
};

Walk MakeWalk(Point from, Point to)
{
    const bool isUpwards = to.Y < from.Y;
    const Point start = isUpwards ? to : from;
    const Point end = isUpwards ? from : to;
    const std::int64_t height = end.Y - start.Y;
    const std::int64_t width = std::abs(end.X - start.X);
    const int sideways = end.X < start.X ? -1 : 1;
    const bool isSteep = height > width;
    return {.Start = start,
            .Length = isSteep ? height : width,
            .Depth = isSteep ? width : height,
            .MajorStep = isSteep ? 1 : sideways,
            .MinorStep = isSteep ? sideways : 1,
            .IsSteep = isSteep,
            .IsUpwards = isUpwards};
}

// Clips the range of steps along the longer side.
void ClipSteps(const Walk& walk, const Box& clip, std::int64_t& first, std::int64_t& last)
{
    const std::int64_t low = (walk.IsSteep ? clip.Top : clip.Left) - walk.MajorStart();
    const std::int64_t high = (walk.IsSteep ? clip.Bottom : clip.Right) - walk.MajorStart();
    if (walk.MajorStep > 0) {
        first = std::max(first, low);
        last = std::min(last, high);
    } else {
        first = std::max(first, 1 - high);
        last = std::min(last, 1 - low);
    }
}

void DrawSolidStraight(const Canvas& canvas, Point from, Point to, Pixel ink)
{
    if (from.Y == to.Y)
        canvas.FillSpan(from.Y, std::min(from.X, to.X + 1), std::max(from.X + 1, to.X), ink);
    else
        canvas.FillBox({from.X, std::min(from.Y, to.Y + 1), from.X + 1, std::max(from.Y + 1, to.Y)}, ink);
}

// The samples of styles. False, without effect, for any other line.
bool DrawLevelDashes(const Canvas& canvas, const Walk& walk, const Stroke& stroke)
{
    if (walk.Depth != 0 || walk.IsSteep || stroke.Thickness != 1 || stroke.Scale != 1)
        return false;
    std::int64_t first = walk.First();
    std::int64_t last = walk.Last();
    ClipSteps(walk, canvas.Clip(), first, last);
    if (first >= last || walk.Start.Y < canvas.Clip().Top || walk.Start.Y >= canvas.Clip().Bottom)
        return true;
    Pixel* pixel = canvas.Row(walk.Start.Y) + walk.Start.X + walk.MajorStep * first;
    auto unit = static_cast<int>(first % stroke.Period);
    for (std::int64_t j = first; j < last; ++j, pixel += walk.MajorStep) {
        if ((stroke.Dashes >> unit & 1) != 0)
            *pixel = stroke.Ink;
        else if (stroke.Gap)
            *pixel = *stroke.Gap;
        if (++unit == stroke.Period)
            unit = 0;
    }
    return true;
}

// Calls draw(step, minor, major, pixel) for each pixel from which that many across meet the clip box.
template <class Draw>
void WalkPixels(const Canvas& canvas, const Walk& walk, std::int64_t across, const Draw& draw)
{
    std::int64_t j = walk.First();
    std::int64_t last = walk.Last();
    ClipSteps(walk, canvas.Clip(), j, last);
    if (j >= last)
        return;
    const Box& clip = canvas.Clip();
    const std::int64_t low = (walk.IsSteep ? clip.Left : clip.Top) - across + 1;
    const std::int64_t high = walk.IsSteep ? clip.Right : clip.Bottom;
    const std::int64_t whole = 2 * walk.Length;
    std::int64_t minor = walk.MinorStart() + walk.MinorStep * (walk.MinorNumerator(j) / whole);
    std::int64_t rest = walk.MinorNumerator(j) % whole;
    std::int64_t major = walk.MajorStart() + walk.MajorStep * j;
    Pixel* const pixels = canvas.Target().Pixels;
    const std::ptrdiff_t stride = canvas.Target().Stride;
    const std::ptrdiff_t majorStep = walk.MajorStep * (walk.IsSteep ? stride : 1);
    const std::ptrdiff_t minorStep = walk.MinorStep * (walk.IsSteep ? 1 : stride);
    std::ptrdiff_t at = walk.IsSteep ? major * stride + minor : minor * stride + major;
    for (; j < last; ++j, major += walk.MajorStep, at += majorStep) {
        if (minor >= low && minor < high)
            draw(j, minor, major, pixels + at);
        rest += 2 * walk.Depth;
        if (rest >= whole) {
            rest -= whole;
            minor += walk.MinorStep;
            at += minorStep;
        }
    }
}

// Each step is a bar across the line.
void DrawDashes(const Canvas& canvas, const Walk& walk, const Stroke& stroke)
{
    const std::int64_t across = stroke.Thickness;
    WalkPixels(canvas, walk, across,
               [&](std::int64_t j, std::int64_t minor, std::int64_t major, Pixel* pixel) {
                   const std::int64_t steps = walk.IsUpwards ? walk.Length - j : j;
                   const auto unit = static_cast<std::int64_t>(static_cast<double>(steps) / stroke.Scale);
                   const bool isInked = (stroke.Dashes >> (unit % stroke.Period) & 1) != 0;
                   if (!isInked && !stroke.Gap)
                       return;
                   const Pixel ink = isInked ? stroke.Ink : *stroke.Gap;
                   if (across == 1)
                       *pixel = ink;
                   else if (walk.IsSteep)
                       canvas.FillBox({minor, major, minor + across, major + 1}, ink);
                   else
                       canvas.FillBox({major, minor, major + 1, minor + across}, ink);
               });
}

// Through the middles of the squares of both ends. The last one touches the square at which the line ends.
void DrawThickLine(const Canvas& canvas, const Walk& walk, Point from, const Stroke& stroke)
{
    const std::int64_t steps = std::max<std::int64_t>(walk.Length - stroke.Thickness, 0);
    const Point last = walk.At(walk.IsUpwards ? walk.Length - steps : steps);
    const std::int64_t half = stroke.Thickness / 2;
    DrawWideLine(canvas, {from.X + half, from.Y + half}, {last.X + half, last.Y + half}, stroke.Thickness,
                 stroke.Ink);
}

} // namespace

std::optional<Point> LastPixelOfLine(Point from, Point to)
{
    const Walk walk = MakeWalk(from, to);
    if (walk.Length == 0)
        return std::nullopt;
    return walk.At(walk.IsUpwards ? walk.First() : walk.Last() - 1);
}

void DrawThinLine(const Canvas& canvas, Point from, Point to, const Stroke& stroke)
{
    if (from.X == to.X && from.Y == to.Y)
        return;
    const Walk walk = MakeWalk(from, to);
    if (!stroke.IsSolid())
        return DrawLevelDashes(canvas, walk, stroke) ? void() : DrawDashes(canvas, walk, stroke);
    if (stroke.Thickness > 1)
        return DrawThickLine(canvas, walk, from, stroke);
    if (from.X == to.X || from.Y == to.Y)
        return DrawSolidStraight(canvas, from, to, stroke.Ink);
    WalkPixels(canvas, walk, 1,
               [&](std::int64_t, std::int64_t, std::int64_t, Pixel* pixel) { *pixel = stroke.Ink; });
}

} // namespace gdi
