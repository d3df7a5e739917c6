#include "StyleWords.h"

#include <algorithm>
#include <model/Language.h>
#include <model/Palette.h>
#include <model/StyleNames.h>

namespace
{

constexpr const TCHAR* separator = _T(", ");
constexpr const TCHAR* lineSeparator = _T("; ");

CString Translate(LPCTSTR text)
{
    return g_Language.GetUnStrippedText(text, k_LanguageSection, true);
}

CString NumberText(LPCTSTR format, int number)
{
    CString text;
    text.Format(format, number);
    return text;
}

template <std::size_t Count> CString NameAt(const TCHAR* const (&names)[Count], short number)
{
    const bool isNamed = number >= 0 && number < static_cast<short>(Count);
    return isNamed ? Translate(names[number]) : NumberText(_T("%d"), number);
}

} // namespace

CString GetColorName(COLORREF color)
{
    constexpr const TCHAR* digits = _T("0123456789ABCDEF");
    const auto* const named = std::ranges::find(k_Palette, color, &k_NamedColor::Color);
    if (named != std::end(k_Palette))
        return Translate(named->Name);
    CString number(_T("#"));
    for (const BYTE part : {GetRValue(color), GetGValue(color), GetBValue(color)}) {
        number += digits[part / 16];
        number += digits[part % 16];
    }
    return number;
}

CString GetSymbolShapeName(short shape)
{
    return NameAt(k_SymbolShapes, shape);
}

CString GetLineStyleName(short lineStyle)
{
    const auto* const named = std::ranges::find(k_LineStyles, lineStyle, &k_LineStyleName::LineStyle);
    return named != std::end(k_LineStyles) ? Translate(named->Name) : NumberText(_T("%d"), lineStyle);
}

CString GetStyleInWords(const k_LineDef& style)
{
    CString words = GetSymbolShapeName(style.SymbolShape);
    if (style.SymbolShape != 0) {
        words += separator + NameAt(k_SymbolFills, style.SymbolFill);
        words += separator + NumberText(Translate(_T("size %d")), style.SymbolSize);
        words += separator + GetColorName(style.SymbolColor);
    }
    words += lineSeparator + GetLineStyleName(style.LineStyle);
    if (style.LineStyle != PS_NULL) {
        words += separator + NumberText(Translate(_T("width %d")), style.LineWidth);
        words += separator + GetColorName(style.LineColor);
    }
    return words;
}

CString GetMixedText()
{
    return Translate(_T("various"));
}
