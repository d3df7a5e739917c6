// Curve styles in words of the user's language, for those who don't see the pictures.
#pragma once

#include <model/LineDef.h>

// The name of a colour of the palette; for any other, its number as "#A52A00".
CString GetColorName(COLORREF color);

// A number without a name is its own.
CString GetSymbolShapeName(short shape);
CString GetLineStyleName(short lineStyle);

// "square, filled, size 10, Dark yellow; solid, width 2, Black". No symbol and no line have no properties.
CString GetStyleInWords(const k_LineDef& style);

// What a property reads of which the values differ.
CString GetMixedText();
