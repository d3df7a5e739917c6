// A curve style: how one curve is drawn.
#pragma once

#include <afx.h>

class CDC;

// A symbol and a line. Values are not checked: the record holds any value of a layout file.
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

    // Reads or writes the 21 bytes of the record in the layout file.
    void Serialize(CArchive& ar) override;

    // Draw a sample of the line through the middle of the rectangle, and the symbol at its centre; the symbol
    // may reach beyond the rectangle. For the whole picture, draw the line first. They restore the state of
    // the context except its current position, and raise the resource exception if a pen can't be made. The
    // result is always 0.
    int DrawLine(CDC* dc, RECT rect) const;
    int DrawSymbol(CDC* dc, RECT rect) const;

    WORD Reserved = 0; // unused, but copied and stored
    COLORREF LineColor = 0;
    COLORREF SymbolColor = 0;    // outline, fill and dot
    short SymbolShape = 0;       // number of k_SymbolShapes
    short SymbolSize = 10;       // device units
    short SymbolFill = 1;        // number of k_SymbolFills
    short LineStyle = 0;         // number of k_LineStyles
    short LineWidth = 1;         // device units
    bool UseSymbolColor = false; // the user's choice; DrawLine uses LineColor regardless
};
