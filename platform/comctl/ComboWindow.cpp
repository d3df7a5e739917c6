#include "ComboWindow.h"

#include "OwnerDraw.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QEvent>
#include <QLineEdit>
#include <QStyleOptionViewItem>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <QtConvert.h>
#include <algorithm>

namespace
{

constexpr DWORD kindBits = CBS_DROPDOWN | CBS_DROPDOWNLIST;
constexpr int mostVisibleItems = 30;
constexpr UINT highestItem = 255;

QString TextOf(LPARAM lParam)
{
    const auto* const text = reinterpret_cast<LPCWSTR>(lParam);
    return text == nullptr ? QString() : gdi::ToQString(text);
}

class OwnerDrawDelegate : public QStyledItemDelegate
{
public:
    explicit OwnerDrawDelegate(ComboWindow& box) : QStyledItemDelegate(&box), m_box(box) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        m_box.DrawListItem(*painter, option, index.row());
    }

private:
    ComboWindow& m_box;
};

} // namespace

WindowSide& MakeComboBox(DWORD style, QWidget* parent)
{
    return *new ComboWindow(style, parent);
}

ComboWindow::ComboWindow(DWORD style, QWidget* parent) : WidgetWindow(parent)
{
    Style = style;
    setMaxVisibleItems(mostVisibleItems);
    if (IsOwnerDrawn())
        setItemDelegate(new OwnerDrawDelegate(*this));
    if ((style & kindBits) == CBS_DROPDOWN) {
        setEditable(true);
        setInsertPolicy(NoInsert);
        setCompleter(nullptr);
        // What is typed selects nothing in the list, not even at the end.
        disconnect(lineEdit(), SIGNAL(editingFinished()), this, nullptr);
        connect(lineEdit(), &QLineEdit::textEdited, this, &ComboWindow::LoseSelection);
    }
    connect(this, &QComboBox::activated, this, [this] { Notify(CBN_SELCHANGE); });
    FitHeight();
}

LRESULT ComboWindow::OnDefault(UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto index = static_cast<int>(wParam);
    switch (message) {
    case CB_ADDSTRING:
        return Insert(count(), lParam);
    case CB_INSERTSTRING:
        return Insert(index == CB_ERR ? count() : index, lParam);
    case CB_GETCOUNT:
        return count();
    case CB_GETCURSEL:
        return currentIndex();
    case CB_SETCURSEL:
        return Select(index);
    case CB_SELECTSTRING:
        return SelectString(index, lParam);
    case CB_GETLBTEXTLEN:
        return Has(index) ? itemText(index).size() : CB_ERR;
    case CB_GETLBTEXT:
        return CopyText(index, lParam);
    case CB_GETITEMDATA:
        return Has(index) ? static_cast<LRESULT>(DataOf(index)) : CB_ERR;
    case CB_SETITEMDATA:
        return SetData(index, lParam);
    default:
        return WidgetWindow::OnDefault(message, wParam, lParam);
    }
}

// Qt selects the first item of all by itself.
LRESULT ComboWindow::Insert(int index, LPARAM lParam)
{
    if (index < 0 || index > count())
        return CB_ERR;
    const int selected = currentIndex();
    const QString edited = currentText();
    if (HasStrings())
        insertItem(index, TextOf(lParam));
    else
        insertItem(index, QString(), static_cast<qulonglong>(lParam));
    if (IsOwnerDrawn())
        setItemData(index, QSize(0, AskForHeight(index)), Qt::SizeHintRole);
    if (selected < 0) {
        setCurrentIndex(-1);
        setEditText(edited);
    }
    return index;
}

LRESULT ComboWindow::Select(int index)
{
    setCurrentIndex(Has(index) ? index : -1);
    return currentIndex();
}

// Goes once around, from the item after the start.
LRESULT ComboWindow::SelectString(int start, LPARAM lParam)
{
    const QString text = TextOf(lParam);
    if (text.isEmpty() || count() == 0)
        return CB_ERR;
    const int first = Has(start) ? (start + 1) % count() : 0;
    const QModelIndexList found =
        model()->match(model()->index(first, modelColumn(), rootModelIndex()), Qt::DisplayRole, text, 1,
                       Qt::MatchStartsWith | Qt::MatchWrap);
    return found.isEmpty() ? CB_ERR : Select(found.front().row());
}

LRESULT ComboWindow::CopyText(int index, LPARAM lParam) const
{
    auto* const buffer = reinterpret_cast<WCHAR*>(lParam);
    if (!Has(index) || buffer == nullptr)
        return CB_ERR;
    const QString text = itemText(index);
    std::copy_n(reinterpret_cast<LPCWSTR>(text.utf16()), text.size() + 1, buffer);
    return text.size();
}

LRESULT ComboWindow::SetData(int index, LPARAM lParam)
{
    if (!Has(index))
        return CB_ERR;
    setItemData(index, static_cast<qulonglong>(lParam));
    if (index == currentIndex())
        update();
    return TRUE;
}

UINT_PTR ComboWindow::DataOf(int index) const
{
    return itemData(index).toULongLong();
}

int ComboWindow::AskForHeight(int index)
{
    MEASUREITEMSTRUCT item{};
    item.CtlType = ODT_COMBOBOX;
    item.CtlID = static_cast<UINT>(Id);
    item.itemID = static_cast<UINT>(index);
    item.itemHeight = static_cast<UINT>(fontMetrics().height());
    item.itemData = DataOf(index);
    if (WindowSide* const parent = Parent())
        parent->Send(WM_MEASUREITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
    return static_cast<int>(std::clamp(item.itemHeight, 1U, highestItem));
}

// The field keeps what has been typed.
void ComboWindow::LoseSelection()
{
    if (currentIndex() < 0)
        return;
    const QString typed = currentText();
    const int cursor = lineEdit()->cursorPosition();
    setCurrentIndex(-1);
    lineEdit()->setText(typed);
    lineEdit()->setCursorPosition(cursor);
}

void ComboWindow::FitHeight()
{
    setMaximumHeight(sizeHint().height());
}

void ComboWindow::changeEvent(QEvent* event)
{
    WidgetWindow::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FitHeight();
}

void ComboWindow::paintEvent(QPaintEvent* event)
{
    if (!IsOwnerDrawn() || isEditable()) {
        WidgetWindow::paintEvent(event);
        return;
    }
    QStyleOptionComboBox option;
    initStyleOption(&option);
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    DrawField(painter,
              style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this));
}

// A box without a selection shows the item number -1, whose data is -1 too.
void ComboWindow::DrawField(QPainter& painter, const QRect& place)
{
    const int index = currentIndex();
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_COMBOBOX;
    item.itemID = static_cast<UINT>(index);
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = ODS_COMBOBOXEDIT | (isEnabled() ? 0 : ODS_DISABLED);
    if (hasFocus() && !view()->isVisible())
        item.itemState |= ODS_SELECTED | ODS_FOCUS;
    item.itemData = Has(index) ? DataOf(index) : static_cast<UINT_PTR>(CB_ERR);
    DrawByOwner(painter, place, *this, item);
}

// Each draw is a whole one, and about the selection too where that is to be seen.
void ComboWindow::DrawListItem(QPainter& painter, const QStyleOptionViewItem& option, int index)
{
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_COMBOBOX;
    item.itemID = static_cast<UINT>(index);
    item.itemAction = ODA_DRAWENTIRE;
    if (option.state.testFlag(QStyle::State_Selected)) {
        item.itemAction |= ODA_SELECT;
        item.itemState |= ODS_SELECTED;
    }
    if (option.state.testFlag(QStyle::State_HasFocus))
        item.itemState |= ODS_FOCUS;
    item.itemData = DataOf(index);
    DrawByOwner(painter, option.rect, *this, item);
}
