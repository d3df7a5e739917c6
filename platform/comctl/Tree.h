// The tree: one column of rows that fold. Qt keeps the rows, the selection and the scroll position; what a
// row looks like and where a point in it is are told here, so that whoever draws along sees the same places.
#pragma once

#include "TreeItems.h"

#include <DeviceContext.h>
#include <QFontMetrics>
#include <QTreeWidget>
#include <QtConvert.h>
#include <WidgetWindow.h>
#include <vector>

class TreeWindow : public ScrollAreaWindow<QTreeWidget>
{
public:
    TreeWindow(DWORD style, QWidget* parent);
    TreeWindow(const TreeWindow&) = delete;
    TreeWindow& operator=(const TreeWindow&) = delete;
    ~TreeWindow() override { clear(); }

    bool ScrollInfo(int bar, SCROLLINFO& info) const override;
    void OnStyleChanged() override { viewport()->update(); }

    int RowHeight() const;

protected:
    LRESULT OnDefault(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PaintInto(HDC context) override;

    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    // Where the parts of a row are in the client area; all empty for a row that is folded away.
    struct Places {
        QRect Row;
        QRect Branch; // left of the label, with the row's line and its button; empty if there is no room
        QRect Label;
    };
    static constexpr int labelPadding = 2; // at the left and the right of the text
    struct Hit {
        TreeItem* Item;
        UINT Flags; // TVHT_ values
    };

    // What the messages of these names do.
    HTREEITEM Insert(const TVINSERTSTRUCTW& row);
    bool Delete(HTREEITEM handle);
    bool Get(TVITEMW& item) const;
    bool Set(const TVITEMW& item);
    void SetState(TreeItem& row, const TVITEMW& item);
    HTREEITEM Next(HTREEITEM handle, WPARAM relation) const;
    bool Select(HTREEITEM handle, WPARAM relation);
    bool GetRect(RECT& rectangle, bool isLabel) const;

    // Folds or unfolds a row that has children, by the code of TVM_EXPAND, and tells the parent, who may do
    // anything with the rows. False if nothing had to be done.
    bool Fold(TreeItem& item, WPARAM code);
    void SetUnfolded(TreeItem& item, bool unfolds); // and tells nobody
    void Toggle(TreeItem& item) { Fold(item, item.IsUnfolded() ? TVE_COLLAPSE : TVE_EXPAND); }

    // Unfolds what the row is below of, and scrolls. False if there is no such row, or none any more.
    bool Reveal(HTREEITEM handle, ScrollHint hint);

    void TellFolded(const TreeItem& item, WPARAM code);

    TreeItem* Find(HTREEITEM handle) const { return m_handles.Find(handle); }
    TreeItem* Caret() const { return static_cast<TreeItem*>(currentItem()); }
    TreeItem* FirstVisible() const { return static_cast<TreeItem*>(itemAt(0, 0)); }
    TreeItem* Sibling(const TreeItem& item, int distance) const; // null if there is none
    UINT StateOf(const TreeItem& item) const;                    // TVIS_ values

    QRect RowOf(const TreeItem& item) const; // as of its places
    Places PlacesOf(const TreeItem& item) const;
    Hit HitTest(QPoint point) const;
    bool HasButton(const TreeItem& item) const;
    bool Selects(UINT flags) const; // whether a click there does
    HFONT TextFont() const;
    QFontMetrics Metrics() const;
    void UpdateLayout();

    std::vector<HTREEITEM> VisibleRows() const;
    NMTVCUSTOMDRAW Describe(HDC context, const TreeItem& item) const;
    LRESULT Ask(NMTVCUSTOMDRAW& draw, DWORD stage);
    void PaintRow(HDC context, TreeItem& row, bool asks);
    void DrawLines(const gdi::Canvas& canvas, const TreeItem& item, QRect branch) const;
    void DrawButton(const gdi::Canvas& canvas, const TreeItem& item, const QRect& branch) const;
    void DrawLabel(const NMTVCUSTOMDRAW& draw, const TreeItem& item, const Places& places) const;

    TreeHandles m_handles;
};
