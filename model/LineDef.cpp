#include "LineDef.h"

k_LineDef::~k_LineDef() = default;

k_LineDef& k_LineDef::operator=(const k_LineDef& source)
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
