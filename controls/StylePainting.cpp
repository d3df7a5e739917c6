// Paints a style: a sample of its line, and its symbol over the middle.
#include <afxwin.h>
#include <algorithm>
#include <cstdlib>
#include <model/LineDef.h>

namespace
{

enum k_SymbolFill { fillFilled = 0, fillEmpty = 1, fillEmptyWithDot = 2 };

struct k_Centre {
    explicit k_Centre(const RECT& rect)
        : x(rect.left + (rect.right - rect.left) / 2), y(rect.top + (rect.bottom - rect.top) / 2)
    {
    }
    int x;
    int y;
};

// Draws one symbol. The symbol's pen is selected from beginning to end, and its brush too unless a step says
// otherwise.
class k_SymbolPainter
{
public:
    k_SymbolPainter(CDC& dc, const RECT& rect, const k_LineDef& style)
        : m_dc(dc), m_centre(rect), m_half(style.SymbolSize / 2), m_quarter(style.SymbolSize / 4),
          m_fill(style.SymbolFill), m_color(style.SymbolColor), m_symbolPen(PS_SOLID, 1, style.SymbolColor),
          m_previousPen(m_dc.SelectObject(&m_symbolPen))
    {
        // If a brush can't be created, the outline is still drawn.
        m_symbolBrush.Attach(::CreateSolidBrush(m_color));
        m_windowBrush.Attach(::CreateSolidBrush(::GetSysColor(COLOR_WINDOW)));
        m_previousBrush = m_dc.SelectObject(&m_symbolBrush);
    }
    k_SymbolPainter(const k_SymbolPainter&) = delete;
    k_SymbolPainter& operator=(const k_SymbolPainter&) = delete;
    ~k_SymbolPainter()
    {
        m_dc.SelectObject(m_previousBrush);
        m_symbolBrush.DeleteObject();
        m_dc.SelectObject(m_previousPen);
        m_symbolPen.DeleteObject();
        m_windowBrush.DeleteObject();
    }

    // Numbers without a shape paint nothing.
    void Paint(int shape);

private:
    using k_Step = void (k_SymbolPainter::*)();
    enum k_Dot { dotNever, dotIfAskedFor };
    struct k_Shape {
        k_Step Draw;
        k_Dot Dot;
    };
    static const k_Shape s_shapes[];

    void MoveTo(int x, int y) { m_dc.MoveTo(m_centre.x + x, m_centre.y + y); }
    void LineTo(int x, int y) { m_dc.LineTo(m_centre.x + x, m_centre.y + y); }

    // Goes out from here up to the outline, over whatever else is drawn there. A symbol too small for an
    // outline, or of a size below 0, may have none around this place: the colour would run over all that can
    // be drawn on.
    void Flood(int x, int y)
    {
        if (std::max(std::abs(x), std::abs(y)) < std::abs(m_half))
            m_dc.FloodFill(m_centre.x + x, m_centre.y + y, m_color);
    }

    void Disc(int radius)
    {
        m_dc.Ellipse(m_centre.x - radius, m_centre.y - radius, m_centre.x + radius, m_centre.y + radius);
    }

    void DrawNothing() {}
    void DrawCross();
    void DrawTriangle();
    void DrawTriangle2();
    void DrawSquare();
    void DrawPlus();
    void DrawAsterisk();
    void DrawDiamond();
    void DrawCircle();
    void DrawPoint() { Disc(m_quarter); }

    CDC& m_dc;
    k_Centre m_centre;
    int m_half;
    int m_quarter;
    int m_fill;
    COLORREF m_color;
    CPen m_symbolPen;
    CPen* m_previousPen;
    CBrush m_symbolBrush;
    CBrush m_windowBrush;
    CBrush* m_previousBrush;
};

// By the numbers of k_SymbolShapes.
const k_SymbolPainter::k_Shape k_SymbolPainter::s_shapes[] = {
    {&k_SymbolPainter::DrawNothing, dotNever},       {&k_SymbolPainter::DrawCross, dotNever},
    {&k_SymbolPainter::DrawTriangle, dotIfAskedFor}, {&k_SymbolPainter::DrawTriangle2, dotIfAskedFor},
    {&k_SymbolPainter::DrawSquare, dotIfAskedFor},   {&k_SymbolPainter::DrawPlus, dotIfAskedFor},
    {&k_SymbolPainter::DrawAsterisk, dotIfAskedFor}, {&k_SymbolPainter::DrawDiamond, dotIfAskedFor},
    {&k_SymbolPainter::DrawCircle, dotIfAskedFor},   {&k_SymbolPainter::DrawPoint, dotNever},
};

void k_SymbolPainter::Paint(int shape)
{
    if (shape < 0 || shape >= static_cast<int>(std::size(s_shapes)))
        return;
    const k_Shape& entry = s_shapes[shape];
    (this->*entry.Draw)();
    if (entry.Dot == dotIfAskedFor && m_fill == fillEmptyWithDot)
        Disc(m_quarter);
}

void k_SymbolPainter::DrawCross()
{
    MoveTo(-m_half, -m_half);
    LineTo(m_half, m_half);
    MoveTo(m_half, -m_half);
    LineTo(-m_half, m_half);
}

// Filled shapes of lines have two seeds, as the curve's own line may cut them in two.
void k_SymbolPainter::DrawTriangle()
{
    MoveTo(-m_half, m_half);
    LineTo(m_half, m_half);
    LineTo(0, -m_half);
    LineTo(-m_half, m_half);
    m_dc.CloseFigure();
    if (m_fill == fillFilled) {
        Flood(0, -m_half + 2);
        Flood(0, m_half - 1);
    }
}

void k_SymbolPainter::DrawTriangle2()
{
    MoveTo(-m_half, -m_half);
    LineTo(0, m_half);
    LineTo(m_half, -m_half);
    LineTo(-m_half, -m_half);
    m_dc.CloseFigure();
    if (m_fill == fillFilled) {
        Flood(-m_half + 1, -m_half + 1);
        Flood(0, m_half - 2);
    }
}

void k_SymbolPainter::DrawSquare()
{
    CBrush* const previous = m_dc.SelectObject(&m_windowBrush);
    m_dc.Rectangle(m_centre.x - m_half, m_centre.y - m_half, m_centre.x + m_half, m_centre.y + m_half);
    m_dc.SelectObject(previous);
    if (m_fill == fillFilled)
        Flood(0, 0);
}

void k_SymbolPainter::DrawPlus()
{
    MoveTo(-m_half, 0);
    LineTo(m_half, 0);
    MoveTo(0, -m_half);
    LineTo(0, m_half);
}

void k_SymbolPainter::DrawAsterisk()
{
    DrawPlus();
    DrawCross();
}

// A kite: widest a quarter of the size above the middle.
void k_SymbolPainter::DrawDiamond()
{
    MoveTo(0, -m_half);
    LineTo(-m_half, -m_quarter);
    LineTo(0, m_half);
    LineTo(m_half, -m_quarter);
    LineTo(0, -m_half);
    m_dc.CloseFigure();
    if (m_fill == fillFilled) {
        Flood(0, -m_half + 2);
        Flood(0, m_half - 2);
    }
}

void k_SymbolPainter::DrawCircle()
{
    CBrush* previous = nullptr;
    if (m_fill == fillEmpty || m_fill == fillEmptyWithDot)
        previous = m_dc.SelectObject(&m_windowBrush);
    Disc(m_half);
    m_dc.SelectObject(previous);
}

void DrawSample(CDC& dc, const RECT& rect, int style, int width, COLORREF color)
{
    const int y = k_Centre(rect).y;
    CPen pen(style, width, color);
    CPen* const previous = dc.SelectObject(&pen);
    dc.MoveTo(rect.left, y);
    dc.LineTo(rect.right, y);
    dc.SelectObject(previous);
}

} // namespace

int k_LineDef::DrawLine(CDC* dc, RECT rect) const
{
    DrawSample(*dc, rect, PS_SOLID, LineWidth, ::GetSysColor(COLOR_WINDOW)); // the gaps of the style
    DrawSample(*dc, rect, LineStyle, LineWidth, LineColor);
    return 0;
}

int k_LineDef::DrawSymbol(CDC* dc, RECT rect) const
{
    k_SymbolPainter(*dc, rect, *this).Paint(SymbolShape);
    return 0;
}
