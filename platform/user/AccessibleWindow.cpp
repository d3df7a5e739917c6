#include "AccessibleWindow.h"

#include "Accessibility.h"
#include "Later.h"
#include "MouseClicks.h"
#include "Window.h"

#include <QAbstractButton>
#include <QPointer>
#include <memory>

namespace
{

class AccessiblePart : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    AccessiblePart(QWidget& widget, int part) : m_widget(&widget), m_part(part) {}

    bool isValid() const override { return Window::Of(m_widget) != nullptr; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_widget); }
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    QString text(QAccessible::Text kind) const override
    {
        return isValid() && kind == QAccessible::Name ? accessible::NameOf(*Window::Of(m_widget), m_part)
                                                      : QString();
    }
    QRect rect() const override
    {
        return isValid() ? accessible::PlaceOf(*Window::Of(m_widget), m_part) : QRect();
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.focusable = true;
        state.selectable = true;
        state.focused = isValid() && accessible::FocusedPart(*Window::Of(m_widget)) == m_part;
        state.selected = state.focused;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }
    void doAction(const QString& action) override
    {
        Window* const window = Window::Of(m_widget);
        if (action != pressAction() || window == nullptr)
            return;
        CallLater(*window, [handle = window->Handle(), onScreen = rect().center()] {
            QWidget& client = Window::Of(handle)->Client();
            const QPoint point = client.mapFromGlobal(onScreen);
            SendMouseMove(client, point);
            if (Window::Of(handle) != nullptr)
                SendMouseClicks(client, point, 1);
        });
    }

private:
    QPointer<QWidget> m_widget;
    int m_part;
};

} // namespace

AccessibleWindow::AccessibleWindow(Window& window, QAccessible::Role role)
    : QAccessibleWidget(&window.Widget(), role)
{
}

Window* AccessibleWindow::Asked() const
{
    return Window::Of(widget());
}

QString AccessibleWindow::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Name || Asked() == nullptr)
        return QAccessibleWidget::text(kind);
    const QString name = accessible::NameOf(*Asked(), accessible::self);
    return !name.isEmpty() ? name : accessible::WithoutMnemonic(Asked()->Text());
}

int AccessibleWindow::childCount() const
{
    return Asked() != nullptr ? accessible::PartCount(*Asked()) : 0;
}

QAccessibleInterface* AccessibleWindow::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    return m_parts.At(index, [&] { return std::make_unique<AccessiblePart>(*widget(), index + 1); });
}

int AccessibleWindow::indexOfChild(const QAccessibleInterface* child) const
{
    for (int index = 0; index < childCount(); ++index) {
        if (this->child(index) == child)
            return index;
    }
    return -1;
}

QAccessibleInterface* AccessibleWindow::childAt(int x, int y) const
{
    for (int index = 0; index < childCount(); ++index) {
        if (child(index)->rect().contains(x, y))
            return child(index);
    }
    return nullptr;
}

QAccessibleInterface* AccessibleWindow::focusChild() const
{
    QAccessibleInterface* const part =
        Asked() != nullptr && widget()->hasFocus() ? child(accessible::FocusedPart(*Asked()) - 1) : nullptr;
    return part != nullptr ? part : QAccessibleWidget::focusChild();
}

QStringList AccessibleWindow::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (qobject_cast<QAbstractButton*>(widget()) != nullptr && widget()->isEnabled())
        names.prepend(pressAction());
    return names;
}

// The click comes later, because it may open a dialog.
void AccessibleWindow::doAction(const QString& action)
{
    auto* const button = qobject_cast<QAbstractButton*>(widget());
    if (action == pressAction() && button != nullptr)
        button->animateClick();
    else
        QAccessibleWidget::doAction(action);
}
