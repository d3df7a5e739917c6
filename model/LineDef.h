// A curve style: how one curve is drawn.
#pragma once

#include <afx.h>

class CDC;

// A symbol and a line. The record checks nothing: any value that a layout file holds stands in it.
class AFX_EXT_CLASS k_LineDef : public CObject
{
public:
    k_LineDef() = default;
    k_LineDef& operator=(const k_LineDef& source)
    {
        Reserved = source.Reserved;
        LineColor = source.LineColor;
        SymbolColor = source.SymbolColor;
        SymbolShape = source.SymbolShape;
        SymbolSize = source.SymbolSize;
        SymbolFill = source.SymbolFill;
        LineStyle = source.LineStyle;
        LineWidth = source.LineWidth;
        UseSymbolColor = source.UseSymbolColor;
        return *this;
    }
    ~k_LineDef() override;

    // Raises the memory exception when there is no memory.
    static void* operator new(std::size_t size);
    static void operator delete(void* record, std::size_t size) noexcept;

    // The 21 bytes of the record in the layout file.
    void Serialize(CArchive& ar) override;

    // The sample of the line through the middle of a rectangle, and the symbol at its centre, which may reach
    // beyond it; in this order they give the whole picture. The context leaves as it came, but for its
    // current position. Raise the resource exception when a pen can't be made. The result is always 0.
    int DrawLine(CDC* dc, RECT rect) const;
    int DrawSymbol(CDC* dc, RECT rect) const;

    WORD Reserved = 0; // travels with every copy and through the file
    COLORREF LineColor = 0;
    COLORREF SymbolColor = 0;    // outline, fill and dot
    short SymbolShape = 0;       // number of k_SymbolShapes
    short SymbolSize = 10;       // device units
    short SymbolFill = 1;        // number of k_SymbolFills
    short LineStyle = 0;         // number of k_LineStyles
    short LineWidth = 1;         // device units
    bool UseSymbolColor = false; // a choice of the user's; the line is drawn in LineColor all the same
};
