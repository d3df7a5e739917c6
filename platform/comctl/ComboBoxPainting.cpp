// Owner draw of a combo box.
#include "ComboBox.h"
#include "OwnerDraw.h"

#include <QAbstractItemView>
#include <QStyleOptionViewItem>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <algorithm>

namespace
{

constexpr UINT maxItemHeight = 255;
constexpr int rowPadding = 6; // above and below a picture as high as a line of text

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

void ComboWindow::SetUpOwnerDraw()
{
    setItemDelegate(new OwnerDrawDelegate(*this));
}

int ComboWindow::AskForHeight(int index)
{
    MEASUREITEMSTRUCT item{};
    item.CtlID = static_cast<UINT>(Id);
    item.itemID = static_cast<UINT>(index);
    item.itemHeight = static_cast<UINT>(fontMetrics().height() + rowPadding);
    if (Window* const parent = Parent())
        parent->Send(WM_MEASUREITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
    return static_cast<int>(std::clamp(item.itemHeight, 1U, maxItemHeight));
}

void ComboWindow::paintEvent(QPaintEvent* event)
{
    if (!IsOwnerDrawn() || isEditable()) {
        WidgetWindow::paintEvent(event);
        return;
    }
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.editable = true; // the owner fills the field with the colour of windows, as one with a text is
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    DrawField(painter, field);
    if (hasFocus()) // which not every style shows on the frame
        DrawFocus(painter, field);
}

void ComboWindow::DrawFocus(QStylePainter& painter, const QRect& field) const
{
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = field.adjusted(1, 1, -1, -1);
    option.backgroundColor = palette().color(QPalette::Base);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

// Without a selection, item and data are -1.
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

// Always ODA_DRAWENTIRE, with ODA_SELECT for a selected item.
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
