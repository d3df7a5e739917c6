// A tree with columns of styles, written with Qt's item views in the usual way.
#pragma once

#include <QStandardItemModel>
#include <QTreeView>
#include <model/StyleAtlas.h>

namespace bench
{

// A QTreeView with a column for the labels and one for each file. Each item of its model points to a row of
// the atlas; a delegate draws the cells with QPainter.
class PeerTree : public QTreeView
{
public:
    // Heights and widths in pixels.
    PeerTree(int rowHeight, int treeColumnWidth, int fileColumnWidth, QWidget* parent = nullptr);

    // Replaces the rows by those of the atlas, all expanded. The atlas must outlive them.
    void Fill(const k_StyleAtlas& atlas);

private:
    QStandardItemModel m_model;
};

} // namespace bench
