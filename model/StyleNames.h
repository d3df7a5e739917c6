// The names of shapes, fills and line styles. The number of each is its position.
#pragma once

#include <iterator>
#include <windows.h>

inline constexpr const TCHAR* k_SymbolShapes[] = {
    _T("no symbol"), _T("cross"),    _T("triangle"), _T("triangle 2"), _T("square"),
    _T("plus"),      _T("asteriks"), _T("diamond"),  _T("circle"),     _T("point"),
};
constexpr int k_SymbolShapeCount = std::size(k_SymbolShapes);

inline constexpr const TCHAR* k_SymbolFills[] = {_T("filled"), _T("empty"), _T("empty with dot")};
constexpr int k_SymbolFillCount = std::size(k_SymbolFills);

struct k_LineStyleName {
    short LineStyle; // PS_ constant
    const TCHAR* Name;
};
inline constexpr k_LineStyleName k_LineStyles[] = {
    {PS_SOLID, _T("solid")},
    {PS_DASH, _T("dashed")},
    {PS_DOT, _T("dotted")},
    {PS_DASHDOT, _T("dash dotted")},
    {PS_DASHDOTDOT, _T("dahs dot dot")},
    {PS_NULL, _T("no line")},
};
constexpr int k_LineStyleCount = std::size(k_LineStyles);
