#include "PeerTree.h"

#include "StylePeer.h"

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QtConvert.h>
#include <afxwin.h>
#include <model/QuantityDesc.h>

namespace
{

constexpr int maxLevels = 3;

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
            k_QuantityDesc& row = static_cast<const bench::AtlasModel*>(index.model())->RowAt(index);
            bench::PaintStyleByPainter(*painter, *row.GetColumnStyle(index.column() - 1),
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

void AtlasModel::SetRows(const k_StyleAtlas& atlas)
{
    beginResetModel();
    m_nodes.clear();
    m_roots.clear();
    const auto count = static_cast<int>(atlas.Rows.GetSize());
    m_nodes.reserve(static_cast<std::size_t>(count));
    int parents[maxLevels + 1] = {-1, -1, -1, -1};
    for (int index = 0; index < count; ++index) {
        k_QuantityDesc* const row = atlas.GetRow(index);
        const int parent = parents[row->Level];
        std::vector<int>& siblings =
            parent < 0 ? m_roots : m_nodes[static_cast<std::size_t>(parent)].Children;
        const QString label =
            QString::fromUtf16(static_cast<const char16_t*>(atlas.GetRowLabel(index).GetString()));
        siblings.push_back(index);
        m_nodes.push_back({row, label, parent, CountOf(siblings) - 1, {}});
        parents[row->Level + 1] = index;
    }
    endResetModel();
}

QModelIndex AtlasModel::index(int row, int column, const QModelIndex& parent) const
{
    const std::vector<int>& children = ChildrenOf(parent);
    if (row < 0 || row >= CountOf(children) || column < 0 || column >= columnCountOfAll)
        return {};
    return createIndex(row, column, static_cast<quintptr>(children[static_cast<std::size_t>(row)]));
}

QModelIndex AtlasModel::parent(const QModelIndex& child) const
{
    const int parent = child.isValid() ? NodeAt(child).Parent : -1;
    if (parent < 0)
        return {};
    return createIndex(m_nodes[static_cast<std::size_t>(parent)].Place, 0, static_cast<quintptr>(parent));
}

QVariant AtlasModel::data(const QModelIndex& index, int role) const
{
    return role == Qt::DisplayRole && index.column() == 0 ? QVariant(NodeAt(index).Label) : QVariant();
}

QVariant AtlasModel::headerData(int section, Qt::Orientation /*orientation*/, int role) const
{
    return role == Qt::DisplayRole && section > 0 ? QVariant(QString("file %1").arg(section)) : QVariant();
}

PeerTree::PeerTree(int rowHeight, int treeColumnWidth, int fileColumnWidth, QWidget* parent)
    : QTreeView(parent)
{
    setModel(&m_model);
    setItemDelegate(new CellDelegate(rowHeight, this));
    setUniformRowHeights(true);
    setFrameShape(NoFrame);
    setHorizontalScrollMode(ScrollPerPixel);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(1);
    for (int column = 0; column < AtlasModel::columnCountOfAll; ++column)
        setColumnWidth(column, column == 0 ? treeColumnWidth : fileColumnWidth);
}

void PeerTree::Fill(const k_StyleAtlas& atlas)
{
    m_model.SetRows(atlas);
    expandAll();
}

} // namespace bench
