#include "Picture.h"

#include <SysColors.h>
#include <algorithm>

namespace test
{

namespace
{

struct Kind {
    COLORREF Color;
    char Character;
};
constexpr Kind kinds[] = {
    {paper, '.'}, {ink, '#'}, {filling, 'o'}, {gapColor, '-'}, {windowColor, ' '},
};
constexpr char unknown = '?';

} // namespace

Picture::Picture(int width, int height, COLORREF background)
    : Picture(width, height, {0, 0, width, height}, background)
{
}

Picture::Picture(int width, int height, const RECT& clip, COLORREF background)
    : m_width(width), m_height(height), m_background(background),
      m_pixels(static_cast<std::size_t>(width * height), gdi::ToPixel(background))
{
    m_dc.Attach(gdi::CreateSurfaceDC({m_pixels.data(), width, height, width}, clip));
}

gdi::Pixel Picture::PixelAt(int x, int y) const
{
    return m_pixels.at(static_cast<std::size_t>(y * m_width + x));
}

char Picture::At(int x, int y) const
{
    const auto* const kind =
        std::ranges::find(kinds, PixelAt(x, y), [](const Kind& each) { return gdi::ToPixel(each.Color); });
    return kind == std::end(kinds) ? unknown : kind->Character;
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
    const std::string text = Text();
    return static_cast<int>(std::ranges::count(text, kind));
}

CRect Picture::Painted() const
{
    CRect all;
    for (int y = 0; y < m_height; ++y) {
        for (int x = 0; x < m_width; ++x) {
            if (PixelAt(x, y) == gdi::ToPixel(m_background))
                continue;
            const CRect pixel(x, y, x + 1, y + 1);
            all = all.IsRectEmpty()
                      ? pixel
                      : CRect(std::min(all.left, pixel.left), std::min(all.top, pixel.top),
                              std::max(all.right, pixel.right), std::max(all.bottom, pixel.bottom));
        }
    }
    return all;
}

void Picture::CutTo(const RECT& rect)
{
    for (int y = 0; y < m_height; ++y) {
        for (int x = 0; x < m_width; ++x) {
            if (::PtInRect(&rect, {x, y}) == FALSE)
                m_pixels[static_cast<std::size_t>(y * m_width + x)] = gdi::ToPixel(m_background);
        }
    }
}

WindowColor::WindowColor() : m_before(::GetSysColor(COLOR_WINDOW))
{
    gdi::SetSysColor(COLOR_WINDOW, windowColor);
}

WindowColor::~WindowColor()
{
    gdi::SetSysColor(COLOR_WINDOW, m_before);
}

} // namespace test
