#include "Accessibility.h"

#include "Contain.h"
#include "Window.h"

#include <QAccessible>
#include <QtConvert.h>
#include <afxwnd.h>
#include <memory>

namespace accessible
{
namespace
{

VARIANT PartNumber(int part)
{
    return {VT_I4, part};
}

QAccessibleInterface* MakeFor(const QString& /*className*/, QObject* object)
{
    Window* const window = Window::Of(qobject_cast<QWidget*>(object));
    return window != nullptr ? window->NewAccessible() : nullptr;
}

} // namespace

int PartCount(const Window& window)
{
    LONG count = 0;
    if (window.Attached != nullptr)
        Contain([&] { window.Attached->get_accChildCount(&count); });
    return count;
}

QString NameOf(const Window& window, int part)
{
    BSTR name = nullptr;
    if (window.Attached != nullptr)
        Contain([&] { window.Attached->get_accName(PartNumber(part), &name); });
    const std::unique_ptr<WCHAR, decltype(&SysFreeString)> owned(name, &SysFreeString);
    return gdi::ToQString(name);
}

int FocusedPart(const Window& window)
{
    VARIANT focused{VT_EMPTY, self};
    if (window.Attached != nullptr)
        Contain([&] { window.Attached->get_accFocus(&focused); });
    return focused.vt == VT_I4 ? focused.lVal : self;
}

QRect PlaceOf(const Window& window, int part)
{
    LONG left = 0;
    LONG top = 0;
    LONG width = 0;
    LONG height = 0;
    if (window.Attached != nullptr)
        Contain([&] { window.Attached->accLocation(&left, &top, &width, &height, PartNumber(part)); });
    return {left, top, width, height};
}

QString WithoutMnemonic(const QString& text)
{
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && i + 1 < text.size())
            ++i;
        plain += text[i];
    }
    return plain;
}

void Renew(Window& window)
{
    if (const QAccessibleInterface* const object = QAccessible::queryAccessibleInterface(&window.Widget()))
        QAccessible::deleteAccessibleInterface(
            QAccessible::uniqueId(const_cast<QAccessibleInterface*>(object)));
}

void Install()
{
    QAccessible::installFactory(MakeFor);
}

} // namespace accessible

HRESULT CWnd::get_accChildCount(LONG* /*pcountChildren*/)
{
    return S_FALSE;
}

HRESULT CWnd::get_accName(VARIANT /*varChild*/, BSTR* /*pszName*/)
{
    return S_FALSE;
}

HRESULT CWnd::get_accFocus(VARIANT* /*pvarChild*/)
{
    return S_FALSE;
}

HRESULT CWnd::accLocation(LONG* /*pxLeft*/, LONG* /*pyTop*/, LONG* /*pcxWidth*/, LONG* /*pcyHeight*/,
                          VARIANT /*varChild*/)
{
    return S_FALSE;
}
