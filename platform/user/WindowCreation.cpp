// Creates the window of a framework object.
#include "Application.h"
#include "Contain.h"
#include "Later.h"
#include "Window.h"

#include <QtConvert.h>
#include <afxwin.h>
#include <memory>

namespace
{

constexpr LRESULT notCreated = -1;

// Null on failure.
Window* Make(const CREATESTRUCT& creation, UINT id, const Window::Factory& factory)
{
    std::unique_ptr<Window> window;
    const bool isMade = Contain([&] {
        Window* const parent = Window::Of(creation.hwndParent);
        const auto style = static_cast<DWORD>(creation.style);
        const bool needsParent = (style & WS_CHILD) != 0 || creation.hwndParent != nullptr;
        if (!CanShowWindows() || (needsParent && parent == nullptr))
            return;
        window.reset(factory(parent != nullptr ? &parent->Widget() : nullptr));
        if (window == nullptr)
            return;
        window->Style = style;
        window->Id = static_cast<int>(id);
        if (creation.lpszName != nullptr)
            window->SetText(gdi::ToQString(creation.lpszName));
        window->Widget().setGeometry(creation.x, creation.y, creation.cx, creation.cy);
    });
    return isMade ? window.release() : nullptr;
}

void Show(QWidget& widget)
{
    widget.show();
    if (widget.isWindow())
        widget.setFocus();
}

// From the event loop: a desktop can place a popup only when it appears, so its creator has to be done with
// it.
void ShowLater(Window& popup)
{
    CallLater(popup, [&widget = popup.Widget()] { Show(widget); });
}

} // namespace

bool Window::Create(CWnd& object, CREATESTRUCT creation, UINT id, const Factory& factory)
{
    if (object.m_hWnd != nullptr)
        return false;
    Window* const window = Make(creation, id, factory);
    if (window == nullptr) {
        object.PostNcDestroy();
        return false;
    }
    const bool isAttached = Contain([&] { object.SubclassWindow(window->Handle()); });
    if (!isAttached ||
        window->SendContained(WM_CREATE, 0, reinterpret_cast<LPARAM>(&creation), notCreated) == notCreated) {
        window->Destroy();
        return false;
    }
    window->SendPendingSize();
    if ((static_cast<DWORD>(creation.style) & WS_VISIBLE) == 0)
        window->Widget().hide();
    else if (window->IsPopup())
        ShowLater(*window);
    else
        Show(window->Widget());
    return true;
}
