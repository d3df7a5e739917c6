#include "Control.h"

#include <QtConvert.h>
#include <WindowSide.h>

namespace
{

constexpr LRESULT notCreated = -1;

} // namespace

BOOL CreateControl(CWnd& object, ControlFactory factory, const ControlCreation& creation)
{
    const HWND parentHandle = creation.Parent != nullptr ? creation.Parent->m_hWnd : nullptr;
    WindowSide* const parent = WindowSide::Of(parentHandle);
    if (parent == nullptr || object.m_hWnd != nullptr)
        return FALSE;
    const RECT& place = creation.Place;
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    WindowSide& window = factory(creation.Style, &parent->Widget());
    window.Id = static_cast<int>(creation.Id);
    if (creation.Text != nullptr)
        window.SetText(gdi::ToQString(creation.Text));
    window.Widget().setGeometry(place.left, place.top, width, height);
    window.Widget().setEnabled((creation.Style & WS_DISABLED) == 0);
    object.SubclassWindow(window.Handle());

    CREATESTRUCT told{
        nullptr,       parentHandle, height, width, place.top, place.left, static_cast<LONG>(creation.Style),
        creation.Text, nullptr,      0};
    if (window.Send(WM_CREATE, 0, reinterpret_cast<LPARAM>(&told)) == notCreated) {
        window.Destroy();
        return FALSE;
    }
    window.SendPendingSize();
    window.Widget().setVisible((creation.Style & WS_VISIBLE) != 0);
    return TRUE;
}
