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

// The text that leads to the control: on its left, or on its right where the dialog is mirrored.
QString TextBefore(const QWidget& widget)
{
    const auto fromStart = [&widget](const QRect& place) {
        return QStyle::visualRect(widget.layoutDirection(), widget.parentWidget()->rect(), place);
    };
    const QRect place = fromStart(widget.geometry());
    const StaticWindow* nearest = nullptr;
    int nearestLeft = 0;
    for (const StaticWindow* const text : Beside<StaticWindow>(widget)) {
        const QRect other = fromStart(text->geometry());
        const bool isOnLine = other.top() <= place.bottom() && other.bottom() >= place.top();
        const bool isNearer = nearest == nullptr || other.left() > nearestLeft;
        if (isOnLine && other.left() < place.left() && isNearer) {
            nearest = text;
            nearestLeft = other.left();
        }
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
