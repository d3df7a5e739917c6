// A small surface that is drawn on and compared as text, one character for each pixel.
#pragma once

#include <DeviceContext.h>

#include <afxdc.h>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace test
{

// The colours with a character; any other is '?'.
constexpr COLORREF paper = RGB(10, 20, 30);          // '.'
constexpr COLORREF ink = RGB(200, 0, 0);             // '#'
constexpr COLORREF filling = RGB(0, 150, 0);         // 'o'
constexpr COLORREF gapColor = RGB(0, 0, 200);        // '-'
constexpr COLORREF windowColor = RGB(255, 255, 255); // ' '

class Picture
{
public:
    Picture(int width, int height) : Picture(width, height, {0, 0, width, height}) {}
    // On a grid, all lengths are in its units.
    Picture(int width, int height, const RECT& clip, const gdi::PixelGrid& grid = {})
        : m_width(static_cast<int>(grid.X(width))), m_height(static_cast<int>(grid.Y(height))),
          m_pixels(IndexOf(0, m_height), gdi::ToPixel(paper))
    {
        m_dc.Attach(gdi::CreateSurfaceDC({m_pixels.data(), m_width, m_height, m_width}, clip, grid));
    }

    CDC& Dc() { return m_dc; }

    CSize Size() const { return {m_width, m_height}; }
    // Each row ends with a newline.
    std::string Text() const
    {
        std::string text;
        for (int y = 0; y < m_height; ++y, text += '\n') {
            for (int x = 0; x < m_width; ++x)
                text += At(x, y);
        }
        return text;
    }
    char At(int x, int y) const
    {
        constexpr std::pair<COLORREF, char> kinds[] = {
            {paper, '.'}, {ink, '#'}, {filling, 'o'}, {gapColor, '-'}, {windowColor, ' '}};
        for (const auto& [color, character] : kinds) {
            if (PixelAt(x, y) == gdi::ToPixel(color))
                return character;
        }
        return '?';
    }
    gdi::Pixel PixelAt(int x, int y) const { return m_pixels.at(IndexOf(x, y)); }
    int Count(char kind) const { return static_cast<int>(std::ranges::count(Text(), kind)); }

    // The bounding rectangle of all pixels that differ from the paper.
    CRect Painted() const
    {
        CRect all(m_width, m_height, 0, 0);
        for (int y = 0; y < m_height; ++y) {
            for (int x = 0; x < m_width; ++x) {
                if (PixelAt(x, y) != gdi::ToPixel(paper))
                    all = CRect(std::min<int>(all.left, x), std::min<int>(all.top, y),
                                std::max<int>(all.right, x + 1), std::max<int>(all.bottom, y + 1));
            }
        }
        return all.right > 0 ? all : CRect();
    }

    friend bool operator==(const Picture& first, const Picture& second)
    {
        return first.m_pixels == second.m_pixels;
    }
    friend std::ostream& operator<<(std::ostream& out, const Picture& picture)
    {
        return out << '\n' << picture.Text();
    }

private:
    std::size_t IndexOf(int x, int y) const { return static_cast<std::size_t>(y * m_width + x); }

    int m_width; // in pixels
    int m_height;
    std::vector<gdi::Pixel> m_pixels;
    CDC m_dc;
};

} // namespace test
