#include "PeerTree.h"

#include "StylePeer.h"

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QtConvert.h>
#include <afxwin.h>
#include <model/QuantityDesc.h>

namespace
{

constexpr int rowRole = Qt::UserRole + 1;
constexpr int columnCount = 1 + k_MaxFileColumns;

class CellDelegate : public QStyledItemDelegate
{
public:
    CellDelegate(int rowHeight, QObject* parent) : QStyledItemDelegate(parent), m_rowHeight(rowHeight) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QRect& cell = option.rect;
        if (index.column() == 0) {
            QStyledItemDelegate::paint(painter, option, index);
        } else {
            painter->fillRect(cell, Qt::white);
            const auto row = index.siblingAtColumn(0).data(rowRole).value<void*>();
            bench::PaintStyleByPainter(*painter,
                                       *static_cast<k_QuantityDesc*>(row)->GetColumnStyle(index.column() - 1),
                                       cell.adjusted(leftInset, labelInset, -rightInset, -labelInset));
        }
        painter->setPen(gdi::ToQColor(::GetSysColor(COLOR_3DLIGHT)));
        painter->drawLine(cell.right(), cell.top(), cell.right(), cell.bottom());
        painter->drawLine(cell.left(), cell.bottom(), cell.right(), cell.bottom());
    }

    QSize sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const override
    {
        return {0, m_rowHeight};
    }

private:
    static constexpr int leftInset = 10;
    static constexpr int rightInset = 3;
    static constexpr int labelInset = 1;

    int m_rowHeight;
};

} // namespace

namespace bench
{

PeerTree::PeerTree(int rowHeight, int treeColumnWidth, int fileColumnWidth, QWidget* parent)
    : QTreeView(parent)
{
    setModel(&m_model);
    setItemDelegate(new CellDelegate(rowHeight, this));
    setUniformRowHeights(true);
    setFrameShape(NoFrame);
    setHorizontalScrollMode(ScrollPerPixel);
    m_model.setColumnCount(columnCount);
    for (int column = 0; column < columnCount; ++column)
        m_model.setHeaderData(column, Qt::Horizontal,
                              column == 0 ? QString() : QString("file %1").arg(column));
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(1);
    for (int column = 0; column < columnCount; ++column)
        setColumnWidth(column, column == 0 ? treeColumnWidth : fileColumnWidth);
}

void PeerTree::Fill(const k_StyleAtlas& atlas)
{
    m_model.removeRows(0, m_model.rowCount());
    QStandardItem* parents[] = {m_model.invisibleRootItem(), nullptr, nullptr};
    const auto count = atlas.Rows.GetSize();
    for (INT_PTR index = 0; index < count; ++index) {
        k_QuantityDesc* const row = atlas.GetRow(index);
        auto* const item = new QStandardItem(
            QString::fromUtf16(static_cast<const char16_t*>(atlas.GetRowLabel(index).GetString())));
        item->setData(QVariant::fromValue(static_cast<void*>(row)), rowRole);
        item->setColumnCount(columnCount);
        QStandardItem* const parent = parents[row->Level];
        parent->appendRow(item);
        if (row->Level + 1 < static_cast<int>(std::size(parents)))
            parents[row->Level + 1] = item;
    }
    expandAll();
}

} // namespace bench
