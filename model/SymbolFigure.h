// The figure of each symbol, whatever it is painted on.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <iterator>

// What a disc is filled with.
enum k_SymbolInterior { symbolInk, symbolPaper };

// The canvas draws in ink, one pixel wide, in coordinates around the symbol's centre. It has
//   MoveTo(x, y), LineTo(x, y), CloseFigure()
//   Square(half): filled with paper
//   Disc(radius, interior)
//   Flood(x, y): inks the area around a point as far as what is inked already
template <class Canvas> class k_SymbolFigure
{
public:
    k_SymbolFigure(Canvas& canvas, int fill, int size)
        : m_canvas(canvas), m_half(size / 2), m_quarter(size / 4), m_fill(fill)
    {
    }

    // A number of k_SymbolShapes; any other draws nothing.
    void Draw(int shape)
    {
        if (shape < 0 || shape >= static_cast<int>(std::size(s_shapes)))
            return;
        const k_Shape& entry = s_shapes[shape];
        (this->*entry.Draw)();
        if (entry.Dot == dotIfAskedFor && m_fill == fillEmptyWithDot)
            m_canvas.Disc(m_quarter, symbolInk);
    }

private:
    enum k_Fill { fillFilled = 0, fillEmpty = 1, fillEmptyWithDot = 2 };
    enum k_Dot { dotNever, dotIfAskedFor };
    struct k_Shape {
        void (k_SymbolFigure::*Draw)();
        k_Dot Dot;
    };
    static const k_Shape s_shapes[];

    void DrawNothing() {}
    void DrawCross()
    {
        DrawStroke(-m_half, -m_half, m_half, m_half);
        DrawStroke(m_half, -m_half, -m_half, m_half);
    }
    void DrawTriangle()
    {
        DrawOutline({{-m_half, m_half}, {m_half, m_half}, {0, -m_half}});
        FillOutline({0, -m_half + 2}, {0, m_half - 1});
    }
    void DrawTriangle2()
    {
        DrawOutline({{-m_half, -m_half}, {0, m_half}, {m_half, -m_half}});
        FillOutline({-m_half + 1, -m_half + 1}, {0, m_half - 2});
    }
    void DrawSquare()
    {
        m_canvas.Square(m_half);
        if (m_fill == fillFilled)
            Flood({0, 0});
    }
    void DrawPlus()
    {
        DrawStroke(-m_half, 0, m_half, 0);
        DrawStroke(0, -m_half, 0, m_half);
    }
    void DrawAsterisk()
    {
        DrawPlus();
        DrawCross();
    }
    // A kite: widest a quarter of the size above the middle.
    void DrawDiamond()
    {
        DrawOutline({{0, -m_half}, {-m_half, -m_quarter}, {0, m_half}, {m_half, -m_quarter}});
        FillOutline({0, -m_half + 2}, {0, m_half - 2});
    }
    void DrawCircle()
    {
        m_canvas.Disc(m_half, m_fill == fillEmpty || m_fill == fillEmptyWithDot ? symbolPaper : symbolInk);
    }
    void DrawPoint() { m_canvas.Disc(m_quarter, symbolInk); }

    struct k_Place {
        int x;
        int y;
    };

    void DrawStroke(int fromX, int fromY, int toX, int toY)
    {
        m_canvas.MoveTo(fromX, fromY);
        m_canvas.LineTo(toX, toY);
    }

    void DrawOutline(std::initializer_list<k_Place> corners)
    {
        m_canvas.MoveTo(corners.begin()->x, corners.begin()->y);
        for (const k_Place* corner = corners.begin() + 1; corner != corners.end(); ++corner)
            m_canvas.LineTo(corner->x, corner->y);
        m_canvas.LineTo(corners.begin()->x, corners.begin()->y);
        m_canvas.CloseFigure();
    }

    // Two seeds, as the curve's own line may cut the area in two.
    void FillOutline(k_Place first, k_Place second)
    {
        if (m_fill != fillFilled)
            return;
        Flood(first);
        Flood(second);
    }

    // Outside the outline of a very small symbol, or of one with a negative size, the ink would run over the
    // whole canvas.
    void Flood(k_Place seed)
    {
        if (std::max(std::abs(seed.x), std::abs(seed.y)) < std::abs(m_half))
            m_canvas.Flood(seed.x, seed.y);
    }

    Canvas& m_canvas;
    int m_half;
    int m_quarter;
    int m_fill;
};

// By the numbers of k_SymbolShapes.
template <class Canvas>
const typename k_SymbolFigure<Canvas>::k_Shape k_SymbolFigure<Canvas>::s_shapes[] = {
    {&k_SymbolFigure::DrawNothing, dotNever},       {&k_SymbolFigure::DrawCross, dotNever},
    {&k_SymbolFigure::DrawTriangle, dotIfAskedFor}, {&k_SymbolFigure::DrawTriangle2, dotIfAskedFor},
    {&k_SymbolFigure::DrawSquare, dotIfAskedFor},   {&k_SymbolFigure::DrawPlus, dotIfAskedFor},
    {&k_SymbolFigure::DrawAsterisk, dotIfAskedFor}, {&k_SymbolFigure::DrawDiamond, dotIfAskedFor},
    {&k_SymbolFigure::DrawCircle, dotIfAskedFor},   {&k_SymbolFigure::DrawPoint, dotNever},
};
