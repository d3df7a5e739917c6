#include "RecentLines.h"

#include <algorithm>
#include <vector>

namespace gdi
{

namespace
{

constexpr std::size_t usualSeeds = 64;

struct Seed {
    int X;
    int Y;
};

struct FilledSpan {
    int Y;
    int Left;
    int Right;
};

// Fills span by span. Filled pixels take the border colour, so that none is visited twice. A run of free
// pixels has at most two pending seeds, one from the row above and one from the row below.
class Filler
{
public:
    Filler(const Canvas& canvas, Pixel border) : m_canvas(canvas), m_border(border)
    {
        m_seeds.reserve(usualSeeds);
    }

    // Calls filled(span) for every span filled.
    template <class Filled> Rows Run(Seed first, const Filled& filled)
    {
        int top = first.Y;
        int bottom = first.Y;
        m_seeds.push_back(first);
        while (!m_seeds.empty()) {
            const Seed seed = m_seeds.back();
            m_seeds.pop_back();
            if (IsBorder(m_canvas.At(seed.X, seed.Y)))
                continue;
            const FilledSpan span = FillSpanAround(seed);
            filled(span);
            top = std::min(top, span.Y);
            bottom = std::max(bottom, span.Y);
            Plant(span, span.Y - 1);
            Plant(span, span.Y + 1);
        }
        return {top, std::int64_t{bottom} + 1};
    }

private:
    bool IsBorder(Pixel pixel) const { return IsSameColor(pixel, m_border); }

    FilledSpan FillSpanAround(Seed seed) const
    {
        Pixel* const row = m_canvas.Row(seed.Y);
        int left = seed.X;
        while (left > m_canvas.Clip().Left && !IsBorder(row[left - 1]))
            --left;
        int right = seed.X + 1;
        while (right < m_canvas.Clip().Right && !IsBorder(row[right]))
            ++right;
        m_canvas.FillSpan(seed.Y, left, right, m_border);
        return {seed.Y, left, right};
    }

    // One seed for each run of fillable pixels beside the span.
    void Plant(const FilledSpan& span, int y)
    {
        if (y < m_canvas.Clip().Top || y >= m_canvas.Clip().Bottom)
            return;
        const Pixel* const row = m_canvas.Row(y);
        bool isInRun = false;
        for (int x = span.Left; x < span.Right; ++x) {
            const bool isFree = !IsBorder(row[x]);
            if (isFree && !isInRun)
                m_seeds.push_back({x, y});
            isInRun = isFree;
        }
    }

    const Canvas& m_canvas;
    Pixel m_border;
    std::vector<Seed> m_seeds;
};

bool CanFill(const Canvas& canvas, Point from, Pixel border)
{
    return canvas.Contains(from.X, from.Y) && !IsSameColor(canvas.At(from.X, from.Y), border);
}

Seed ToSeed(Point point)
{
    return {static_cast<int>(point.X), static_cast<int>(point.Y)};
}

} // namespace

Rows FloodFill(const Canvas& canvas, Point from, Pixel border, Pixel ink)
{
    if (!CanFill(canvas, from, border))
        return {};
    Filler filler(canvas, border);
    if (IsSameColor(border, ink))
        return filler.Run(ToSeed(from), [](const FilledSpan&) {});
    std::vector<FilledSpan> spans;
    const Rows rows = filler.Run(ToSeed(from), [&spans](const FilledSpan& span) { spans.push_back(span); });
    for (const FilledSpan& span : spans)
        canvas.FillSpan(span.Y, span.Left, span.Right, ink);
    return rows;
}

Rows FloodFigure(const Canvas& canvas, Point from, Pixel border, Pixel ink, const RecentLines& lines)
{
    constexpr std::int64_t maxArea = std::int64_t{1} << 18;
    // A rectangle may be as large as the window, on each of its cells.
    const auto framed = lines.Framed(border);
    if (framed && framed->Place.Contains(from) && canvas.IsFilled(framed->Place, framed->Ink)) {
        canvas.FillBox(framed->Place, ink);
        return {framed->Place.Top, framed->Place.Bottom};
    }
    const std::optional<Box> figure = lines.Figure();
    if (!figure || !figure->Contains(from) || figure->IsWithin(canvas.Clip()) ||
        figure->Right - figure->Left > maxArea / (figure->Bottom - figure->Top))
        return FloodFill(canvas, from, border, ink);
    const Box shown = figure->Intersect(canvas.Clip());
    if (shown.IsEmpty())
        return {};

    // The whole figure, with what there is of it on the canvas.
    const auto width = static_cast<int>(figure->Right - figure->Left);
    const auto height = static_cast<int>(figure->Bottom - figure->Top);
    std::vector<Pixel> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
                              border ^ colorBits);
    const Canvas whole({pixels.data(), width, height, width}, {0, 0, width, height});
    lines.Draw(whole, {figure->Left, figure->Top});
    for (std::int64_t y = shown.Top; y < shown.Bottom; ++y)
        std::copy(canvas.Row(y) + shown.Left, canvas.Row(y) + shown.Right,
                  whole.Row(y - figure->Top) + shown.Left - figure->Left);

    const Point seed{from.X - figure->Left, from.Y - figure->Top};
    if (!CanFill(whole, seed, border))
        return {};
    const Rows rows = Filler(whole, border).Run(ToSeed(seed), [&](const FilledSpan& span) {
        canvas.FillSpan(span.Y + figure->Top, span.Left + figure->Left, span.Right + figure->Left, ink);
    });
    return {rows.Top + figure->Top, rows.Bottom + figure->Top};
}

} // namespace gdi
