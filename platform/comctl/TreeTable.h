// The table that a tree forms with the header beside it: a column for each heading, the tree in the first
// one.
#pragma once

#include "Tree.h"

class HeaderWindow;

// Keys and screen readers act on it as the mouse would. The parent of the tree says what is selected, and
// names the cells: see CWnd::get_accName. Without a header there is one column, and without an answer of the
// parent the caret row is selected.
class TreeTable
{
public:
    // A row's cell, or a heading if there is no row. The heading of column 0 stands for nothing.
    struct Cell {
        TreeItem* Row = nullptr;
        int Column = 0;
    };

    explicit TreeTable(TreeWindow& tree);

    int ColumnCount() const;
    Cell Selected() const;
    QString NameOf(const Cell& cell) const; // the row's text where the parent has no name
    QRect PlaceOf(const Cell& cell) const;  // on the screen; empty for a row below a collapsed one

    // The cell to which a click moves the selection, for +1: from a row to its first cell, from a cell to the
    // heading of its column, from a heading to the row where keys go on. For -1 the other way round.
    Cell Next(int direction) const;

    // Scroll to the cell and send the mouse events of a click on its middle. The windows may be gone
    // afterwards.
    void Click(const Cell& cell) const { SendClicks(cell, 1); }
    void ClickTwice(const Cell& cell) const { SendClicks(cell, 2); }

private:
    void SendClicks(const Cell& cell, int count) const;
    QWidget& ClientOf(const Cell& cell) const;
    QRect ClientPlaceOf(const Cell& cell) const; // in the client area of its window
    int PartOf(const Cell& cell) const;          // the number for the parent

    TreeWindow& m_tree;
    HeaderWindow* m_header; // may be null
};
