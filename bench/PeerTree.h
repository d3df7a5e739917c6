// A tree with columns of styles, written with Qt's views and a model of one's own.
#pragma once

#include <QAbstractItemModel>
#include <QTreeView>
#include <model/StyleAtlas.h>
#include <vector>

namespace bench
{

// The rows of an atlas, which has to outlive them. The labels are read when the rows are set.
class AtlasModel : public QAbstractItemModel
{
public:
    static constexpr int columnCountOfAll = 1 + k_MaxFileColumns;

    void SetRows(const k_StyleAtlas& atlas);
    k_QuantityDesc& RowAt(const QModelIndex& index) const { return *NodeAt(index).Row; }

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent) const override { return CountOf(ChildrenOf(parent)); }
    int columnCount(const QModelIndex& /*parent*/) const override { return columnCountOfAll; }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Node {
        k_QuantityDesc* Row;
        QString Label;
        int Parent; // index of a node, -1 for none
        int Place;  // among its siblings
        std::vector<int> Children;
    };

    static int CountOf(const std::vector<int>& children) { return static_cast<int>(children.size()); }
    const Node& NodeAt(const QModelIndex& index) const { return m_nodes[index.internalId()]; }
    const std::vector<int>& ChildrenOf(const QModelIndex& parent) const
    {
        return parent.isValid() ? NodeAt(parent).Children : m_roots;
    }

    std::vector<Node> m_nodes;
    std::vector<int> m_roots;
};

// A QTreeView with a column for the labels and one for each file; a delegate draws the cells with QPainter.
class PeerTree : public QTreeView
{
public:
    // Heights and widths in pixels.
    PeerTree(int rowHeight, int treeColumnWidth, int fileColumnWidth, QWidget* parent = nullptr);

    // Replaces the rows by those of the atlas, all expanded. The atlas must outlive them.
    void Fill(const k_StyleAtlas& atlas);

private:
    AtlasModel m_model;
};

} // namespace bench
