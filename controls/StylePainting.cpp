// Paints a style: a sample of its line, and its symbol over the middle.
#include "SelectedObject.h"

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

// Empty if it can't be created: then the outline is still drawn.
struct k_SolidBrush : CBrush {
    explicit k_SolidBrush(COLORREF color) { Attach(::CreateSolidBrush(color)); }
};

// What a symbol is drawn on. Its pen and its brush are selected as long as the canvas lives.
class k_SymbolCanvas
{
public:
    k_SymbolCanvas(CDC& dc, const RECT& rect, COLORREF color)
        : m_dc(dc), m_centre(rect), m_color(color), m_symbolPen(PS_SOLID, 1, color),
          m_selectedPen(dc, m_symbolPen), m_symbolBrush(color), m_windowBrush(::GetSysColor(COLOR_WINDOW)),
          m_selectedBrush(dc, m_symbolBrush)
    {
    }

    void MoveTo(int x, int y) { m_dc.MoveTo(m_centre.x + x, m_centre.y + y); }
    void LineTo(int x, int y) { m_dc.LineTo(m_centre.x + x, m_centre.y + y); }
    void CloseFigure() { m_dc.CloseFigure(); }

    void Square(int half)
    {
        const k_SelectedObject<CBrush> paper(m_dc, m_windowBrush);
        m_dc.Rectangle(m_centre.x - half, m_centre.y - half, m_centre.x + half, m_centre.y + half);
    }

    void Disc(int radius, k_SymbolInterior interior)
    {
        const k_SelectedObject<CBrush> brush(m_dc, interior == symbolPaper ? m_windowBrush : m_symbolBrush);
        m_dc.Ellipse(m_centre.x - radius, m_centre.y - radius, m_centre.x + radius, m_centre.y + radius);
    }

    // Goes over whatever else is drawn there.
    void Flood(int x, int y) { m_dc.FloodFill(m_centre.x + x, m_centre.y + y, m_color); }

private:
    CDC& m_dc;
    k_Centre m_centre;
    COLORREF m_color;
    CPen m_symbolPen;
    k_SelectedObject<CPen> m_selectedPen;
    k_SolidBrush m_symbolBrush;
    k_SolidBrush m_windowBrush;
    k_SelectedObject<CBrush> m_selectedBrush;
};

void DrawSample(CDC& dc, const RECT& rect, int style, int width, COLORREF color)
{
    const int y = k_Centre(rect).y;
    CPen pen(style, width, color);
    const k_SelectedObject selected(dc, pen);
    dc.MoveTo(rect.left, y);
    dc.LineTo(rect.right, y);
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
