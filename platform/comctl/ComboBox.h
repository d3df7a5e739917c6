// The combo box: a field, editable with CBS_DROPDOWN, and a list that drops down from it.
#pragma once

#include <QComboBox>
#include <WidgetWindow.h>
#include <winctrl.h>

class QStyleOptionViewItem;
class QStylePainter;

// As high as its field, whatever height it is given; the open list is as high as its items.
class ComboWindow : public WidgetWindow<QComboBox>
{
public:
    ComboWindow(DWORD style, QWidget* parent);

    // The text of the field.
    QString Text() const override { return currentText(); }
    void SetText(const QString& text) override { setEditText(text); }
    QAccessibleInterface* NewAccessible() override;

    // Lets the owner draw an item of the open list.
    void DrawListItem(QPainter& painter, const QStyleOptionViewItem& option, int index);

protected:
    LRESULT OnDefault(UINT message, WPARAM wParam, LPARAM lParam) override;

    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool IsOwnerDrawn() const { return (Style & CBS_OWNERDRAWVARIABLE) != 0; }
    bool HasStrings() const { return !IsOwnerDrawn() || (Style & CBS_HASSTRINGS) != 0; }
    bool Has(int index) const { return index >= 0 && index < count(); }

    // Implement the messages of these names; lParam is that of the message.
    LRESULT Insert(int index, LPARAM lParam);
    LRESULT Select(int index);
    LRESULT SelectString(int start, LPARAM lParam);
    LRESULT CopyText(int index, LPARAM lParam) const;
    LRESULT SetData(int index, LPARAM lParam);

    UINT_PTR DataOf(int index) const;
    void SetUpOwnerDraw();
    int AskForHeight(int index);
    void FitHeight();
    void LoseSelection();
    void ShowCue(const QString& text); // in grey, while the field is empty
    void ShowIfTaken();                // a text that isn't of the list is grey, except while it is edited
    void DrawField(QPainter& painter, const QRect& place);
    void DrawFocus(QStylePainter& painter, const QRect& field) const;
};
