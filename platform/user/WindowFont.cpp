#include "WindowFont.h"

#include <GdiObjects.h>

void WindowFont::Release::operator()(gdi::Font* font) const
{
    font->Release();
}

HFONT WindowFont::Handle() const
{
    return m_font ? static_cast<HFONT>(m_font->Handle()) : nullptr;
}

void WindowFont::Set(HFONT font)
{
    auto* const held = dynamic_cast<gdi::Font*>(gdi::GdiObject::FromHandle(font));
    if (held != nullptr)
        held->Hold();
    m_font.reset(held);
}
