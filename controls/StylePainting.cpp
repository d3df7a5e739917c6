// Paints a style: a sample of its line, and its symbol over the middle.
#include <afxwin.h>
#include <model/LineDef.h>
#include <model/SymbolFigure.h>

namespace
{

struct k_Centre {
    explicit k_Centre(const RECT& rect)
        : x(rect.left + (rect.right - rect.left) / 2), y(rect.top + (rect.bottom - rect.top) / 2)
    {
    }
    int x;
    int y;
};

// What a symbol is drawn on. Its pen and its brush are selected as long as the canvas lives.
class k_SymbolCanvas
{
public:
    k_SymbolCanvas(CDC& dc, const RECT& rect, COLORREF color)
        : m_dc(dc), m_centre(rect), m_color(color), m_symbolPen(PS_SOLID, 1, color),
          m_previousPen(m_dc.SelectObject(&m_symbolPen))
    {
        // If a brush can't be created, the outline is still drawn.
        m_symbolBrush.Attach(::CreateSolidBrush(m_color));
        m_windowBrush.Attach(::CreateSolidBrush(::GetSysColor(COLOR_WINDOW)));
        m_previousBrush = m_dc.SelectObject(&m_symbolBrush);
    }
    k_SymbolCanvas(const k_SymbolCanvas&) = delete;
    k_SymbolCanvas& operator=(const k_SymbolCanvas&) = delete;
    ~k_SymbolCanvas()
    {
        m_dc.SelectObject(m_previousBrush);
        m_dc.SelectObject(m_previousPen);
    }

    void MoveTo(int x, int y) { m_dc.MoveTo(m_centre.x + x, m_centre.y + y); }
    void LineTo(int x, int y) { m_dc.LineTo(m_centre.x + x, m_centre.y + y); }
    void CloseFigure() { m_dc.CloseFigure(); }

    void Square(int half)
    {
        CBrush* const previous = m_dc.SelectObject(&m_windowBrush);
        m_dc.Rectangle(m_centre.x - half, m_centre.y - half, m_centre.x + half, m_centre.y + half);
        m_dc.SelectObject(previous);
    }

    void Disc(int radius, k_SymbolInterior interior)
    {
        CBrush* const previous = interior == symbolPaper ? m_dc.SelectObject(&m_windowBrush) : nullptr;
        m_dc.Ellipse(m_centre.x - radius, m_centre.y - radius, m_centre.x + radius, m_centre.y + radius);
        m_dc.SelectObject(previous);
    }

    // Goes over whatever else is drawn there.
    void Flood(int x, int y) { m_dc.FloodFill(m_centre.x + x, m_centre.y + y, m_color); }

private:
    CDC& m_dc;
    k_Centre m_centre;
    COLORREF m_color;
    CPen m_symbolPen;
    CPen* m_previousPen;
    CBrush m_symbolBrush;
    CBrush m_windowBrush;
    CBrush* m_previousBrush;
};

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
    k_SymbolCanvas canvas(*dc, rect, SymbolColor);
    k_SymbolFigure(canvas, SymbolFill, SymbolSize).Draw(SymbolShape);
    return 0;
}
