// A menu is a QMenu; the command id is the data of its action.
#include "Application.h"
#include "Later.h"
#include "MenuTemplate.h"
#include "ResourceFile.h"
#include "Window.h"
#include "WindowColors.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <QtConvert.h>
#include <afxwin.h>
#include <algorithm>
#include <memory>

namespace
{

constexpr UINT noCommand = static_cast<UINT>(-1);

// Owns the framework's object of a popup.
class Menu : public QMenu
{
public:
    explicit Menu(QWidget* parent = nullptr) : QMenu(parent)
    {
        Object.m_hMenu = reinterpret_cast<HMENU>(this);
        UseWindowColors(*this);
    }
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;
    ~Menu() override { Object.m_hMenu = nullptr; }

    CMenu Object;

protected:
    // Home and End, which Qt uses only in menus that scroll.
    void keyPressEvent(QKeyEvent* event) override
    {
        const QList<QAction*> items = actions();
        const auto isCommand = [](const QAction* item) { return item->isEnabled() && !item->isSeparator(); };
        if (event->key() == Qt::Key_Home) {
            const auto first = std::ranges::find_if(items, isCommand);
            setActiveAction(first != items.end() ? *first : nullptr);
        } else if (event->key() == Qt::Key_End) {
            const auto last = std::find_if(items.rbegin(), items.rend(), isCommand);
            setActiveAction(last != items.rend() ? *last : nullptr);
        } else {
            QMenu::keyPressEvent(event);
        }
    }
};

Menu* MenuOf(HMENU handle)
{
    return reinterpret_cast<Menu*>(handle);
}

// Null where there is no such item.
QAction* ItemAt(HMENU handle, UINT position)
{
    return handle != nullptr ? MenuOf(handle)->actions().value(static_cast<qsizetype>(position)) : nullptr;
}

QAction* NewCommand(QMenu& menu, UINT id, std::u16string_view text)
{
    auto* const command = new QAction(gdi::ToQString(text), &menu);
    command->setData(id);
    return command;
}

void Fill(Menu& menu, const std::vector<MenuTemplateItem>& items)
{
    for (const MenuTemplateItem& item : items) {
        if (item.Kind == MenuItemKind::Separator) {
            menu.addSeparator();
        } else if (item.Kind == MenuItemKind::Command) {
            menu.addAction(NewCommand(menu, item.Id, item.Text));
        } else {
            auto* const popup = new Menu(&menu);
            menu.addMenu(popup);
            Fill(*popup, item.Items);
        }
    }
}

} // namespace

BOOL CMenu::LoadMenu(UINT nIDResource)
{
    if (m_hMenu != nullptr || !CanShowWindows())
        return FALSE;
    const auto items =
        ReadMenuTemplate(FindResource(ResourceType::Menu, static_cast<std::uint16_t>(nIDResource)));
    if (!items)
        return FALSE;
    auto menu = std::make_unique<Menu>();
    Fill(*menu, *items);
    m_hMenu = menu.release()->Object.m_hMenu;
    return TRUE;
}

BOOL CMenu::DestroyMenu()
{
    Menu* const menu = MenuOf(std::exchange(m_hMenu, nullptr));
    delete menu; // this object may be gone afterwards
    return menu != nullptr ? TRUE : FALSE;
}

CMenu* CMenu::GetSubMenu(int nPos) const
{
    const QAction* const item = ItemAt(m_hMenu, static_cast<UINT>(nPos));
    return item != nullptr && item->menu() != nullptr ? &static_cast<Menu*>(item->menu())->Object : nullptr;
}

int CMenu::GetMenuItemCount() const
{
    return m_hMenu != nullptr ? static_cast<int>(MenuOf(m_hMenu)->actions().size()) : -1;
}

UINT CMenu::GetMenuItemID(int nPos) const
{
    const QAction* const item = ItemAt(m_hMenu, static_cast<UINT>(nPos));
    return item != nullptr && item->menu() == nullptr ? item->data().toUInt() : noCommand;
}

int CMenu::GetMenuString(UINT nPosition, CString& rString, UINT nFlags) const
{
    const QAction* const item = (nFlags & MF_BYPOSITION) != 0 ? ItemAt(m_hMenu, nPosition) : nullptr;
    rString = item != nullptr ? gdi::ToCString(item->text()) : CString();
    return rString.GetLength();
}

BOOL CMenu::ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, LPCTSTR lpszNewItem)
{
    QAction* const before = ItemAt(m_hMenu, nPosition);
    if (before == nullptr || nFlags != MF_BYPOSITION)
        return FALSE;
    Menu& menu = *MenuOf(m_hMenu);
    menu.insertAction(before, NewCommand(menu, static_cast<UINT>(nIDNewItem),
                                         lpszNewItem != nullptr ? lpszNewItem : _T("")));
    if (before->menu() != nullptr)
        delete before->menu(); // which owns the action
    else
        delete before;
    return TRUE;
}

namespace
{

// Below the cell, row or control that has the focus, on the screen.
QPoint PlaceOfFocus(QWidget& window)
{
    QWidget& focused = window.focusWidget() != nullptr ? *window.focusWidget() : window;
    QAccessibleInterface* const control = QAccessible::queryAccessibleInterface(&focused);
    const QAccessibleInterface* const part = control != nullptr ? control->focusChild() : nullptr;
    const QPoint corner = focused.mapToGlobal(QPoint(0, 0));
    const QRect place = part != nullptr ? part->rect().intersected(QRect(corner, focused.size())) : QRect();
    return place.isEmpty() ? corner : place.bottomLeft();
}

} // namespace

// The command is sent from the event loop, because its handler may destroy the menu and the window.
BOOL CMenu::TrackPopupMenu(UINT /*nFlags*/, int x, int y, CWnd* pWnd, LPCRECT /*lpRect*/)
{
    Window* const owner = Window::Of(pWnd != nullptr ? pWnd->GetSafeHwnd() : nullptr);
    if (m_hMenu == nullptr || owner == nullptr)
        return FALSE;
    const QPointer<QWidget> widget(&owner->Widget());
    Menu& menu = *MenuOf(m_hMenu);
    QObject::connect(widget, &QObject::destroyed, &menu, &QWidget::close);
    ::ReleaseCapture();
    const bool isByKeyboard = x == -1 && y == -1;
    const QAction* const chosen = menu.exec(isByKeyboard ? PlaceOfFocus(*widget) : QPoint(x, y));
    if (chosen == nullptr || Window::Of(widget) == nullptr)
        return TRUE;
    CallLater(*owner,
              [owner, id = chosen->data().toUInt()] { owner->SendContained(WM_COMMAND, MAKEWPARAM(id, 0)); });
    return TRUE;
}
