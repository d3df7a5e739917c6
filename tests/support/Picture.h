// A small surface that is drawn on and then read as text, one character a pixel.
#pragma once

#include <DeviceContext.h>

#include <afxdc.h>
#include <string>
#include <vector>

namespace test
{

// The colours that a picture knows; every other one shows as '?'.
constexpr COLORREF paper = RGB(10, 20, 30);          // '.'
constexpr COLORREF ink = RGB(200, 0, 0);             // '#'
constexpr COLORREF filling = RGB(0, 150, 0);         // 'o'
constexpr COLORREF gapColor = RGB(0, 0, 200);        // '-'
constexpr COLORREF windowColor = RGB(250, 250, 250); // ' '

class Picture
{
public:
    Picture(int width, int height, COLORREF background = paper);
    Picture(int width, int height, const RECT& clip, COLORREF background = paper);

    CDC& Dc() { return m_dc; }

    // Each row ends with a newline.
    std::string Text() const;
    char At(int x, int y) const;
    gdi::Pixel PixelAt(int x, int y) const;
    int Count(char kind) const;

    // The smallest rectangle that holds all pixels of other colours than the background's.
    CRect Painted() const;

    // Gives the background back to what is outside a rectangle.
    void CutTo(const RECT& rect);

    friend bool operator==(const Picture& first, const Picture& second)
    {
        return first.m_pixels == second.m_pixels;
    }
    friend std::ostream& operator<<(std::ostream& out, const Picture& picture)
    {
        return out << '\n' << picture.Text();
    }

private:
    int m_width;
    int m_height;
    COLORREF m_background;
    std::vector<gdi::Pixel> m_pixels;
    CDC m_dc;
};

// Puts the window's colour among those that a picture knows.
class WindowColor
{
public:
    WindowColor();
    ~WindowColor();

private:
    COLORREF m_before;
};

} // namespace test
