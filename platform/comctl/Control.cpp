#include "Control.h"

BOOL CreateControl(CWnd& object, ControlFactory factory, const ControlCreation& creation)
{
    const RECT& place = creation.Place;
    const CREATESTRUCT request{nullptr,
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
    return Window::Create(object, request, creation.Id, make) ? TRUE : FALSE;
}
