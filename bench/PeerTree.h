// A tree with columns of styles, as a user of Qt's item views would make it.
#pragma once

#include <QStandardItemModel>
#include <QTreeView>
#include <model/StyleAtlas.h>

namespace bench
{

// A QTreeView with a column for the labels and one for each file. Its model has an item for each row, which
// leads to the row of the atlas; a delegate draws the cells by QPainter.
class PeerTree : public QTreeView
{
public:
    // Heights and widths in pixels.
    PeerTree(int rowHeight, int treeColumnWidth, int fileColumnWidth, QWidget* parent = nullptr);

    // Replaces the rows by those of the atlas, all unfolded. The atlas has to outlive them.
    void Fill(const k_StyleAtlas& atlas);

private:
    QStandardItemModel m_model;
};

} // namespace bench
