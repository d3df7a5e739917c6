#include "ComboBox.h"

#include "AccessibleControls.h"
#include "Control.h"

#include <Accessibility.h>
#include <QAbstractItemModel>
#include <QEvent>
#include <QLineEdit>
#include <QtConvert.h>
#include <TextCopy.h>
#include <string>

namespace
{

constexpr DWORD kindBits = CBS_DROPDOWN | CBS_DROPDOWNLIST;
constexpr int maxListItems = 30;

QString TextOf(LPARAM lParam)
{
    return gdi::ToQString(reinterpret_cast<LPCWSTR>(lParam));
}

const ControlClass comboBoxClass(u"ComboBox", MakeControl<ComboWindow>);

} // namespace

ComboWindow::ComboWindow(DWORD style, QWidget* parent) : WidgetWindow(parent)
{
    Style = style;
    setMaxVisibleItems(maxListItems);
    setFocusPolicy(Qt::StrongFocus); // the wheel doesn't give it
    if (IsOwnerDrawn())
        SetUpOwnerDraw();
    if ((style & kindBits) == CBS_DROPDOWN) {
        setEditable(true);
        setInsertPolicy(NoInsert);
        setCompleter(nullptr);
        // Typing selects nothing in the list, not even when editing ends.
        disconnect(lineEdit(), SIGNAL(editingFinished()), this, nullptr);
        connect(lineEdit(), &QLineEdit::textEdited, this, &ComboWindow::LoseSelection);
        connect(this, &QComboBox::currentIndexChanged, this, &ComboWindow::ShowIfTaken);
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
    case CB_SETCUEBANNER:
        ShowCue(TextOf(lParam));
        return TRUE;
    default:
        return WidgetWindow::OnDefault(message, wParam, lParam);
    }
}

// Qt selects the first inserted item: undo that.
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

// Searches all items, beginning after the start.
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
    ::CopyText(gdi::ToView(text), buffer, static_cast<std::size_t>(text.size()) + 1);
    return text.size();
}

LRESULT ComboWindow::SetData(int index, LPARAM lParam)
{
    if (!Has(index))
        return CB_ERR;
    setItemData(index, static_cast<qulonglong>(lParam));
    setItemData(index, accessible::NameOf(*this, index + 1), Qt::AccessibleTextRole);
    return TRUE;
}

UINT_PTR ComboWindow::DataOf(int index) const
{
    return itemData(index).toULongLong();
}

// The field keeps the typed text.
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

void ComboWindow::ShowCue(const QString& text)
{
    setPlaceholderText(text);
    if (isEditable())
        lineEdit()->setPlaceholderText(text);
}

void ComboWindow::ShowIfTaken()
{
    if (!isEditable())
        return;
    QPalette colors;
    if (currentIndex() < 0 && !hasFocus() && !currentText().isEmpty())
        colors.setColor(QPalette::Text, palette().color(QPalette::PlaceholderText));
    lineEdit()->setPalette(colors);
}

void ComboWindow::focusInEvent(QFocusEvent* event)
{
    WidgetWindow::focusInEvent(event);
    ShowIfTaken();
}

void ComboWindow::focusOutEvent(QFocusEvent* event)
{
    WidgetWindow::focusOutEvent(event);
    ShowIfTaken();
}

// Without the focus, a turn of the wheel is meant for something else.
void ComboWindow::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        WidgetWindow::wheelEvent(event);
    else
        event->ignore();
}

QAccessibleInterface* ComboWindow::NewAccessible()
{
    return new AccessibleCombo(*this);
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

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, MakeControl<ComboWindow>, {nullptr, dwStyle, rect, pParentWnd, nID});
}

void CComboBox::GetLBText(int nIndex, CString& rString) const
{
    rString.Empty();
    const auto index = static_cast<WPARAM>(nIndex);
    const LRESULT length = ::SendMessageW(m_hWnd, CB_GETLBTEXTLEN, index, 0);
    if (length <= 0)
        return;
    std::u16string text(static_cast<std::size_t>(length), u'\0'); // and its terminator
    ::SendMessageW(m_hWnd, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    rString = text.c_str();
}

void CComboBox::DrawItem(LPDRAWITEMSTRUCT /*lpDrawItemStruct*/) {}

void CComboBox::MeasureItem(LPMEASUREITEMSTRUCT /*lpMeasureItemStruct*/) {}

int CComboBox::CompareItem(LPCOMPAREITEMSTRUCT /*lpCompareItemStruct*/)
{
    return 0;
}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    switch (message) {
    case WM_DRAWITEM:
        DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        return TRUE;
    case WM_MEASUREITEM:
        MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
        return TRUE;
    default:
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    }
}
