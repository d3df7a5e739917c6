// Controls for screen readers that say more than Qt's of their kind.
#pragma once

#include <AccessibleWindow.h>
#include <QComboBox>

class ComboWindow;

// Named by what it chooses and by the choice: "Symbol, Shape, square". What it chooses is in the group box
// around it and in the text to its left.
class AccessibleCombo : public AccessibleWindow
{
public:
    explicit AccessibleCombo(ComboWindow& box);

    QString text(QAccessible::Text kind) const override;

    // The list, then the edit field, if there is one.
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;

private:
    QComboBox& Box() const { return static_cast<QComboBox&>(*widget()); }
    QString Value() const;
};
