#include "Picture.h"

#include <algorithm>

namespace test
{

Picture::Picture(int width, int height, const RECT& clip, const gdi::PixelGrid& grid)
    : m_width(static_cast<int>(grid.X(width))), m_height(static_cast<int>(grid.Y(height))),
      m_pixels(IndexOf(0, m_height), gdi::ToPixel(paper))
{
    m_dc.Attach(gdi::CreateSurfaceDC({m_pixels.data(), m_width, m_height, m_width}, clip, grid));
}

char Picture::At(int x, int y) const
{
    constexpr std::pair<COLORREF, char> kinds[] = {
        {paper, '.'}, {ink, '#'}, {filling, 'o'}, {gapColor, '-'}, {windowColor, ' '}};
    for (const auto& [color, character] : kinds) {
        if (PixelAt(x, y) == gdi::ToPixel(color))
            return character;
    }
    return '?';
}

std::string Picture::Text() const
{
    std::string text;
    for (int y = 0; y < m_height; ++y) {
        for (int x = 0; x < m_width; ++x)
            text += At(x, y);
        text += '\n';
    }
    return text;
}

int Picture::Count(char kind) const
{
    return static_cast<int>(std::ranges::count(Text(), kind));
}

CRect Picture::Painted() const
{
    CRect all(m_width, m_height, 0, 0);
    for (int y = 0; y < m_height; ++y) {
        for (int x = 0; x < m_width; ++x) {
            if (m_pixels[IndexOf(x, y)] != gdi::ToPixel(paper))
                all = CRect(std::min<int>(all.left, x), std::min<int>(all.top, y),
                            std::max<int>(all.right, x + 1), std::max<int>(all.bottom, y + 1));
        }
    }
    return all.right > 0 ? all : CRect();
}

} // namespace test
