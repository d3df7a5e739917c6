#include "Rasteriser.h"

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

struct Span {
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
    template <class Filled> void Run(Seed first, const Filled& filled)
    {
        m_seeds.push_back(first);
        while (!m_seeds.empty()) {
            const Seed seed = m_seeds.back();
            m_seeds.pop_back();
            if (IsBorder(m_canvas.At(seed.X, seed.Y)))
                continue;
            const Span span = FillSpanAround(seed);
            filled(span);
            Plant(span, span.Y - 1);
            Plant(span, span.Y + 1);
        }
    }

private:
    bool IsBorder(Pixel pixel) const { return IsSameColor(pixel, m_border); }

    Span FillSpanAround(Seed seed) const
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
    void Plant(const Span& span, int y)
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

} // namespace

bool FloodFill(const Canvas& canvas, Point from, Pixel border, Pixel ink)
{
    if (!canvas.Contains(from.X, from.Y) || IsSameColor(canvas.At(from.X, from.Y), border))
        return false;
    const Seed first{static_cast<int>(from.X), static_cast<int>(from.Y)};
    Filler filler(canvas, border);
    if (IsSameColor(border, ink)) {
        filler.Run(first, [](const Span&) {});
        return true;
    }
    std::vector<Span> spans;
    filler.Run(first, [&spans](const Span& span) { spans.push_back(span); });
    for (const Span& span : spans)
        canvas.FillSpan(span.Y, span.Left, span.Right, ink);
    return true;
}

} // namespace gdi
