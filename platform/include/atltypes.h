// The class framework's points, sizes and rectangles.
#pragma once

#include <windows.h>

struct CSize : SIZE {
    CSize() noexcept : SIZE{0, 0} {}
    CSize(int width, int height) noexcept : SIZE{width, height} {}
    CSize(SIZE size) noexcept : SIZE(size) {} // NOLINT(google-explicit-constructor)
};

struct CPoint : POINT {
    CPoint() noexcept : POINT{0, 0} {}
    CPoint(int pointX, int pointY) noexcept : POINT{pointX, pointY} {}
    CPoint(POINT point) noexcept : POINT(point) {} // NOLINT(google-explicit-constructor)

    // The position that a message carries: x in the low word, y in the high, both signed.
    explicit CPoint(LPARAM position) noexcept
        : POINT{static_cast<short>(LOWORD(static_cast<UINT_PTR>(position))),
                static_cast<short>(HIWORD(static_cast<UINT_PTR>(position)))}
    {
    }

    void Offset(int xOffset, int yOffset) noexcept
    {
        x += xOffset;
        y += yOffset;
    }
};

inline bool operator==(POINT first, POINT second) noexcept
{
    return first.x == second.x && first.y == second.y;
}

struct CRect : RECT {
    CRect() noexcept : CRect(0, 0, 0, 0) {}
    CRect(int l, int t, int r, int b) noexcept
    {
        left = l;
        top = t;
        right = r;
        bottom = b;
    }
    CRect(const RECT& rect) noexcept : RECT(rect) {} // NOLINT(google-explicit-constructor)

    operator LPRECT() noexcept { return this; }        // NOLINT(google-explicit-constructor)
    operator LPCRECT() const noexcept { return this; } // NOLINT(google-explicit-constructor)

    int Width() const noexcept { return right - left; }
    int Height() const noexcept { return bottom - top; }

    void InflateRect(int x, int y) noexcept { ::InflateRect(this, x, y); }
};

inline bool operator==(const RECT& first, const RECT& second) noexcept
{
    return first.left == second.left && first.top == second.top && first.right == second.right &&
           first.bottom == second.bottom;
}
