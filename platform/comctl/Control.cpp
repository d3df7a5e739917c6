#include "Control.h"

#include <WindowSide.h>

BOOL CreateControl(CWnd& object, ControlFactory factory, const ControlCreation& creation)
{
    const RECT& place = creation.Place;
    const CREATESTRUCT told{nullptr,
                            creation.Parent != nullptr ? creation.Parent->m_hWnd : nullptr,
                            place.bottom - place.top,
                            place.right - place.left,
                            place.top,
                            place.left,
                            static_cast<LONG>(creation.Style),
                            creation.Text,
                            nullptr,
                            0};
    const auto make = [&](QWidget* parent) {
        return parent != nullptr ? &factory(creation.Style, parent) : nullptr;
    };
    return WindowSide::Create(object, told, creation.Id, make) ? TRUE : FALSE;
}
