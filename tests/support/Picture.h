// A small surface that is drawn on and compared as text, one character for each pixel.
#pragma once

#include <DeviceContext.h>

#include <afxdc.h>
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
    Picture(int width, int height, const RECT& clip, const gdi::PixelGrid& grid = {});

    CDC& Dc() { return m_dc; }

    CSize Size() const { return {m_width, m_height}; }
    // Each row ends with a newline.
    std::string Text() const;
    char At(int x, int y) const;
    gdi::Pixel PixelAt(int x, int y) const { return m_pixels.at(IndexOf(x, y)); }
    int Count(char kind) const;

    // The bounding rectangle of all pixels that differ from the paper.
    CRect Painted() const;

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
