#include "AccessibleControls.h"

#include "Button.h"
#include "ComboBox.h"
#include "Static.h"

#include <Accessibility.h>
#include <QAbstractItemView>
#include <QLineEdit>
#include <QStyle>

namespace
{

// The controls of this kind in the same dialog.
template <class Control> QList<Control*> Beside(const QWidget& widget)
{
    QList<Control*> found;
    for (QObject* const sibling : widget.parentWidget()->children()) {
        if (auto* const control = dynamic_cast<Control*>(sibling))
            found.append(control);
    }
    return found;
}

QString GroupAround(const QWidget& widget)
{
    for (const GroupBoxWindow* const group : Beside<GroupBoxWindow>(widget)) {
        if (group->geometry().contains(widget.geometry().center()))
            return accessible::WithoutMnemonic(group->Text());
    }
    return {};
}

// On its line, where the text runs from right to left too.
QString TextBefore(const QWidget& widget)
{
    const QRect dialog = widget.parentWidget()->rect();
    const auto placeOf = [&](const QWidget& control) {
        return QStyle::visualRect(widget.layoutDirection(), dialog, control.geometry());
    };
    const QRect place = placeOf(widget);
    const StaticWindow* nearest = nullptr;
    for (const StaticWindow* const text : Beside<StaticWindow>(widget)) {
        const QRect other = placeOf(*text);
        const bool isOnLine = other.top() <= place.bottom() && other.bottom() >= place.top();
        const bool isNearer = nearest == nullptr || other.left() > placeOf(*nearest).left();
        if (isOnLine && other.left() < place.left() && isNearer)
            nearest = text;
    }
    return nearest != nullptr ? accessible::WithoutMnemonic(nearest->Text()) : QString();
}

} // namespace

AccessibleCombo::AccessibleCombo(ComboWindow& box) : AccessibleWindow(box, QAccessible::ComboBox) {}

QString AccessibleCombo::Value() const
{
    const int selected = Box().currentIndex();
    QString name = selected >= 0 ? Box().itemData(selected, Qt::AccessibleTextRole).toString() : QString();
    if (!name.isEmpty())
        return name;
    return Box().currentText().isEmpty() ? Box().placeholderText() : Box().currentText();
}

QString AccessibleCombo::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Value)
        return Value();
    if (kind != QAccessible::Name)
        return AccessibleWindow::text(kind);
    QStringList parts{GroupAround(Box()), TextBefore(Box()), Value()};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

int AccessibleCombo::childCount() const
{
    return Box().isEditable() ? 2 : 1;
}

QAccessibleInterface* AccessibleCombo::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    QWidget* part = Box().lineEdit();
    if (index == 0)
        part = Box().view();
    return QAccessible::queryAccessibleInterface(part);
}
