#include "Button.h"

#include "Control.h"
#include "OwnerDraw.h"

#include <Accessibility.h>
#include <AccessibleWindow.h>
#include <QPaintEvent>
#include <algorithm>

namespace
{

// Indexed by the states of BM_GETCHECK.
constexpr Qt::CheckState checkStates[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};

// Chooses the kind of button by the style.
Window& MakeButton(DWORD style, QWidget* parent)
{
    switch (style & BS_TYPEMASK) {
    case BS_AUTOCHECKBOX:
    case BS_AUTO3STATE:
        return *new CheckBoxWindow(style, parent);
    case BS_GROUPBOX:
        return *new GroupBoxWindow(style, parent);
    default:
        return *new PushButtonWindow(style, parent);
    }
}

const ControlClass buttonClass(u"Button", MakeButton);

} // namespace

template <class Base>
ClickableWindow<Base>::ClickableWindow(DWORD style, QWidget* parent) : WidgetWindow<Base>(parent)
{
    this->Style = style;
    QObject::connect(this, &QAbstractButton::clicked, this, [this] { this->Notify(BN_CLICKED); });
}

template <class Base> LRESULT ClickableWindow<Base>::OnDefault(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != BM_SETSTYLE)
        return WidgetWindow<Base>::OnDefault(message, wParam, lParam);
    this->Style = (this->Style & ~BS_TYPEMASK) | (static_cast<DWORD>(wParam) & BS_TYPEMASK);
    this->OnStyleChanged();
    return 0;
}

PushButtonWindow::PushButtonWindow(DWORD style, QWidget* parent) : ClickableWindow(style, parent)
{
    PushButtonWindow::OnStyleChanged();
}

// Return presses a focused push button, but not an owner-drawn one.
void PushButtonWindow::OnStyleChanged()
{
    setAutoDefault(Type() == BS_PUSHBUTTON || Type() == BS_DEFPUSHBUTTON);
    setDefault(Type() == BS_DEFPUSHBUTTON);
    accessible::Renew(*this);
}

// An owner-drawn button says what its owner has drawn.
QAccessibleInterface* PushButtonWindow::NewAccessible()
{
    return Type() == BS_OWNERDRAW ? new AccessibleWindow(*this, QAccessible::ButtonDropDown) : nullptr;
}

void PushButtonWindow::paintEvent(QPaintEvent* event)
{
    if (Type() != BS_OWNERDRAW) {
        ClickableWindow::paintEvent(event);
        return;
    }
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState =
        (isDown() ? ODS_SELECTED : 0) | (isEnabled() ? 0 : ODS_DISABLED) | (hasFocus() ? ODS_FOCUS : 0);
    QPainter painter(this);
    DrawByOwner(painter, rect(), *this, item);
}

void CheckBoxWindow::OnStyleChanged()
{
    setTristate(Type() == BS_AUTO3STATE);
}

LRESULT CheckBoxWindow::OnDefault(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case BM_GETCHECK:
        return static_cast<LRESULT>(Check());
    case BM_SETCHECK:
        SetCheck(wParam);
        return 0;
    default:
        return ClickableWindow::OnDefault(message, wParam, lParam);
    }
}

// Qt has another order of states.
void CheckBoxWindow::nextCheckState()
{
    const WPARAM next = Check() + 1;
    SetCheck(next > (isTristate() ? BST_INDETERMINATE : BST_CHECKED) ? BST_UNCHECKED : next);
}

WPARAM CheckBoxWindow::Check() const
{
    return static_cast<WPARAM>(std::ranges::find(checkStates, checkState()) - std::begin(checkStates));
}

void CheckBoxWindow::SetCheck(WPARAM check)
{
    setCheckState(checkStates[std::min<WPARAM>(check, isTristate() ? BST_INDETERMINATE : BST_CHECKED)]);
}

GroupBoxWindow::GroupBoxWindow(DWORD style, QWidget* parent) : WidgetWindow(parent)
{
    Style = style;
}

BOOL CButton::Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, MakeButton, {lpszCaption, dwStyle, rect, pParentWnd, nID});
}

void CButton::DrawItem(LPDRAWITEMSTRUCT /*lpDrawItemStruct*/) {}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}
