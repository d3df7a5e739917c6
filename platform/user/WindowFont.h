// The font of a window: of its last WM_SETFONT.
#pragma once

#include <memory>
#include <windef.h>

namespace gdi
{
class Font;
}

// Holds the font, so that it may be deleted meanwhile.
class WindowFont
{
public:
    HFONT Handle() const; // null if there was none
    void Set(HFONT font); // none for an invalid handle

private:
    struct Release {
        void operator()(gdi::Font* font) const;
    };

    std::unique_ptr<gdi::Font, Release> m_font;
};
