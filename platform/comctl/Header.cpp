#include "Header.h"

#include "Control.h"
#include "ScrollBar.h"

#include <QScopedValueRollback>
#include <QStandardItemModel>
#include <QStyle>
#include <QStyleOptionHeader>
#include <QWheelEvent>
#include <QtConvert.h>
#include <TextCopy.h>
#include <afxcmn.h>
#include <algorithm>

namespace
{

constexpr int textPadding = 7; // above and below together

// Indexed by HDITEMW::fmt. Absolute: text is drawn in the direction of the program, whatever that of the
// header.
constexpr int alignments[] = {Qt::AlignLeft | Qt::AlignAbsolute, Qt::AlignRight | Qt::AlignAbsolute,
                              Qt::AlignHCenter | Qt::AlignAbsolute};

int AlignmentOf(int format)
{
    const bool isKnown = format >= 0 && format < static_cast<int>(std::size(alignments));
    return alignments[isKnown ? format : 0] | Qt::AlignVCenter;
}

int FormatOf(int alignment)
{
    const auto* const found = std::ranges::find(alignments, alignment & Qt::AlignHorizontal_Mask);
    return found != std::end(alignments) ? static_cast<int>(found - alignments) : 0;
}

} // namespace

HeaderWindow::HeaderWindow(DWORD style, QWidget* parent)
    : ScrollAreaWindow(Qt::Horizontal, parent), m_items(new QStandardItemModel(this))
{
    Style = style;
    setModel(m_items);
    setLayoutDirection(Qt::LeftToRight); // headings stand over the columns of the tree
    setMinimumSectionSize(0);
    setSectionsClickable((style & HDS_BUTTONS) != 0);
    connect(this, &QHeaderView::sectionResized, this, &HeaderWindow::OnResized);
    connect(this, &QHeaderView::sectionClicked, this,
            [this](int index) { NotifyClick(HDN_ITEMCLICKW, index); });
    connect(this, &QHeaderView::sectionDoubleClicked, this,
            [this](int index) { NotifyClick(HDN_ITEMDBLCLICKW, index); });
}

LRESULT HeaderWindow::OnDefault(UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto index = static_cast<int>(wParam);
    switch (message) {
    case HDM_GETITEMCOUNT:
        return count();
    case HDM_INSERTITEMW:
        return Insert(index, reinterpret_cast<const HDITEMW*>(lParam));
    case HDM_GETITEMW:
        return Get(index, reinterpret_cast<HDITEMW*>(lParam));
    case HDM_LAYOUT:
        return Layout(reinterpret_cast<const HDLAYOUT*>(lParam));
    default:
        return ScrollAreaWindow::OnDefault(message, wParam, lParam);
    }
}

LRESULT HeaderWindow::Insert(int index, const HDITEMW* item)
{
    if (item == nullptr)
        return -1;
    const int place = Has(index) ? index : count();
    m_items->insertColumn(place);
    const LPCWSTR text = (item->mask & HDI_TEXT) != 0 ? item->pszText : nullptr;
    m_items->setHeaderData(place, Qt::Horizontal, gdi::ToQString(text));
    const int format = (item->mask & HDI_FORMAT) != 0 ? item->fmt : 0;
    m_items->setHeaderData(place, Qt::Horizontal, AlignmentOf(format), Qt::TextAlignmentRole);
    SetWidth(place, (item->mask & HDI_WIDTH) != 0 ? item->cxy : 0);
    return place;
}

LRESULT HeaderWindow::Get(int index, HDITEMW* item) const
{
    if (item == nullptr || !Has(index))
        return FALSE;
    if ((item->mask & HDI_WIDTH) != 0)
        item->cxy = sectionSize(index);
    if ((item->mask & HDI_FORMAT) != 0)
        item->fmt = FormatOf(m_items->headerData(index, Qt::Horizontal, Qt::TextAlignmentRole).toInt());
    if ((item->mask & HDI_TEXT) != 0 && item->pszText != nullptr && item->cchTextMax > 0) {
        const QString text = m_items->headerData(index, Qt::Horizontal).toString();
        CopyText(gdi::ToView(text), item->pszText, static_cast<std::size_t>(item->cchTextMax));
    }
    return TRUE;
}

// Takes the top of the rectangle.
LRESULT HeaderWindow::Layout(const HDLAYOUT* layout) const
{
    if (layout == nullptr || layout->prc == nullptr || layout->pwpos == nullptr)
        return FALSE;
    const RECT& rect = *layout->prc;
    *layout->pwpos = {nullptr, nullptr, rect.left, rect.top, rect.right - rect.left, FittingHeight(), 0};
    return TRUE;
}

int HeaderWindow::FittingHeight() const
{
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.text = QStringLiteral("Xg");
    const int ofStyle = style()->sizeFromContents(QStyle::CT_HeaderSection, &option, QSize(), this).height();
    return std::max(ofStyle, fontMetrics().height() + textPadding);
}

void HeaderWindow::SetWidth(int index, int width)
{
    resizeSection(index, std::clamp(width, 0, maximumSectionSize()));
}

void HeaderWindow::mouseMoveEvent(QMouseEvent* event)
{
    const QScopedValueRollback<bool> drag(m_isDragging, true);
    ScrollAreaWindow::mouseMoveEvent(event);
}

void HeaderWindow::wheelEvent(QWheelEvent* event)
{
    event->setAccepted(ScrollBarWindow::TakeWheel(*this, *event));
}

// Qt has already resized: restore, then ask the parent.
void HeaderWindow::OnResized(int index, int before, int after)
{
    if (!m_isDragging)
        return;
    const QScopedValueRollback<bool> ours(m_isDragging, false);
    HDITEMW item{};
    item.mask = HDI_WIDTH;
    item.cxy = after;
    SetWidth(index, before);
    if (NotifyWidth(HDN_ITEMCHANGINGW, index, item) != 0 || !Has(index))
        return;
    SetWidth(index, item.cxy);
    NotifyWidth(HDN_ITEMCHANGEDW, index, item);
}

LRESULT HeaderWindow::NotifyWidth(int code, int index, HDITEMW& item)
{
    NMHEADERW notification{{}, index, 0, &item};
    return Notify(notification.hdr, code);
}

void HeaderWindow::NotifyClick(int code, int index)
{
    NMHEADERW notification{{}, index, 0, nullptr};
    if (Has(index))
        Notify(notification.hdr, code);
}

BOOL CHeaderCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, MakeControl<HeaderWindow>, {nullptr, dwStyle, rect, pParentWnd, nID});
}
