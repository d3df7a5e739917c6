// The named colours: the bulk rules use them in this order, and the colour popup shows them as a grid.
#pragma once

#include <iterator>
#include <windows.h>

struct k_NamedColor {
    COLORREF Color;
    const TCHAR* Name; // the key of its translation
};

inline constexpr k_NamedColor k_Palette[] = {
    {RGB(0x00, 0x00, 0x00), _T("Black")},
    {RGB(0xA5, 0x2A, 0x00), _T("Brown")},
    {RGB(0x00, 0x40, 0x40), _T("Dark Olive Green")},
    {RGB(0x00, 0x55, 0x00), _T("Dark Green")},
    {RGB(0x00, 0x00, 0x5E), _T("Dark Teal")},
    {RGB(0x00, 0x00, 0x8B), _T("Dark blue")},
    {RGB(0x4B, 0x00, 0x82), _T("Indigo")},
    {RGB(0x28, 0x28, 0x28), _T("Dark grey")},
    {RGB(0x8B, 0x00, 0x00), _T("Dark red")},
    {RGB(0xFF, 0x68, 0x20), _T("Orange")},
    {RGB(0x8B, 0x8B, 0x00), _T("Dark yellow")},
    {RGB(0x00, 0x93, 0x00), _T("Green")},
    {RGB(0x38, 0x8E, 0x8E), _T("Teal")},
    {RGB(0x00, 0x00, 0xFF), _T("Blue")},
    {RGB(0x7B, 0x7B, 0xC0), _T("Blue-grey")},
    {RGB(0x66, 0x66, 0x66), _T("Grey - 40")},
    {RGB(0xFF, 0x00, 0x00), _T("Red")},
    {RGB(0xFF, 0xAD, 0x5B), _T("Light orange")},
    {RGB(0x32, 0xCD, 0x32), _T("Lime")},
    {RGB(0x3C, 0xB3, 0x71), _T("Sea green")},
    {RGB(0x7F, 0xFF, 0xD4), _T("Aqua")},
    {RGB(0x7D, 0x9E, 0xC0), _T("Light blue")},
    {RGB(0x80, 0x00, 0x80), _T("Violet")},
    {RGB(0x7F, 0x7F, 0x7F), _T("Grey - 50")},
    {RGB(0xFF, 0xC0, 0xCB), _T("Pink")},
    {RGB(0xFF, 0xD7, 0x00), _T("Gold")},
    {RGB(0xFF, 0xFF, 0x00), _T("Yellow")},
    {RGB(0x00, 0xFF, 0x00), _T("Bright green")},
    {RGB(0x40, 0xE0, 0xD0), _T("Turquoise")},
    {RGB(0xC0, 0xFF, 0xFF), _T("Skyblue")},
    {RGB(0x48, 0x00, 0x48), _T("Plum")},
    {RGB(0xC0, 0xC0, 0xC0), _T("Light grey")},
    {RGB(0xFF, 0xE4, 0xE1), _T("Rose")},
    {RGB(0xD2, 0xB4, 0x8C), _T("Tan")},
    {RGB(0xFF, 0xFF, 0xE0), _T("Light yellow")},
    {RGB(0x98, 0xFB, 0x98), _T("Pale green ")},
    {RGB(0xAF, 0xEE, 0xEE), _T("Pale turquoise")},
    {RGB(0x68, 0x83, 0x8B), _T("Pale blue")},
    {RGB(0xE6, 0xE6, 0xFA), _T("Lavender")},
    {RGB(0xFF, 0xFF, 0xFF), _T("White")},
};
constexpr int k_PaletteSize = std::size(k_Palette);

// The colours that the bulk rules assign: those of the palette, with black instead of white, which would be
// invisible. Past the end they repeat from entry 1 on, so that no two neighbours are black.
constexpr COLORREF GetRuleColor(INT_PTR entry)
{
    constexpr COLORREF black = 0;
    const INT_PTR wrapped = entry < k_PaletteSize ? entry : 1 + (entry - k_PaletteSize) % (k_PaletteSize - 1);
    return wrapped == k_PaletteSize - 1 ? black : k_Palette[wrapped].Color;
}
