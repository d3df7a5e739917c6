// The tree: one column of rows that expand and collapse. Qt keeps the rows, the selection and the scroll
// position. The rows are painted here, with the same geometry for painting, hit test and the parent's custom
// draw.
#pragma once

#include "TreeItems.h"

#include <DeviceContext.h>
#include <QTreeWidget>
#include <QtConvert.h>
#include <WidgetWindow.h>
#include <optional>
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
    bool ActForMouse(const QKeyEvent& key) override;
    QAccessibleInterface* NewAccessible() override;
    QRect ToolTipPlaceAt(QPoint point) override;

    int RowHeight() const;

    // The parts of a row in the client area; all empty for a row below a collapsed one.
    struct Places {
        QRect Row;
        QRect Branch; // left of the label, with lines and button; empty if there is no room
        QRect Label;
    };
    QRect RowOf(const TreeItem& item) const;
    Places PlacesOf(const TreeItem& item) const;

    TreeItem* Find(HTREEITEM handle) const { return m_handles.Find(handle); }
    TreeItem* Caret() const { return static_cast<TreeItem*>(currentItem()); }

    // The row where keys go on: the caret row, or the one that was last, or the topmost; null without rows.
    TreeItem* KeyRow() const;

protected:
    LRESULT OnDefault(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PaintInto(HDC context) override;

    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    static constexpr int labelPadding = 2; // on each side of the text
    struct Hit {
        TreeItem* Item;
        UINT Flags; // TVHT_ values
    };

    // Implement the messages of these names.
    HTREEITEM Insert(const TVINSERTSTRUCTW& row);
    bool Delete(HTREEITEM handle);
    bool Get(TVITEMW& item) const;
    bool Set(const TVITEMW& item);
    void SetState(TreeItem& row, const TVITEMW& item);
    HTREEITEM Next(HTREEITEM handle, WPARAM relation) const;
    bool Select(HTREEITEM handle, WPARAM relation);
    bool GetRect(RECT& rectangle, bool isLabel) const;

    // Expands or collapses a row with children, by the code of TVM_EXPAND, and notifies the parent, which may
    // change any row. False if nothing changed.
    bool Expand(TreeItem& item, WPARAM code);
    void SetExpanded(TreeItem& item, bool isExpanded); // without a notification
    void Toggle(TreeItem& item) { Expand(item, item.IsExpanded() ? TVE_COLLAPSE : TVE_EXPAND); }

    // Expands the row's parents and scrolls to it. False if the row doesn't exist, or not any more.
    bool Reveal(HTREEITEM handle, ScrollHint hint);

    void ReportFocus(bool isNew); // to screen readers, whether or not it was outside of the tree

    void NotifyExpanded(const TreeItem& item, WPARAM code);

    void ExpandBelow(TreeItem& item); // all rows below it, and itself

    // Expands or collapses at the request of the program, with the selected row staying where it is in the
    // view, or else the topmost row. While painting is locked, the layout is delayed until a place is asked
    // for: each step of it would move all rows below.
    bool ExpandInPlace(HTREEITEM handle, WPARAM code);
    struct KeptPlace {
        HTREEITEM Row; // may be null
        int Top;
    };
    KeptPlace PlaceToKeep() const;
    void Restore(const KeptPlace& kept);
    void doItemsLayout() override;
    void EndDelay();
    int RowCount() const; // of the rows that are shown

    TreeItem* FirstVisible() const { return static_cast<TreeItem*>(itemAt(0, 0)); }
    UINT StateOf(const TreeItem& item) const;    // TVIS_ values
    TreeItem* ShownParent(TreeItem* item) const; // the row, or the one it is collapsed into

    Hit HitTest(QPoint point) const;
    bool HasButton(const TreeItem& item) const;
    bool Selects(UINT flags) const; // for a click with these hit-test flags
    HFONT TextFont() const;
    void UpdateLayout();

    // Paint rows, and whether they have drawn within their own places alone.
    bool PaintRows(HDC context, const QRect& part);
    bool PaintRow(HDC context, TreeItem& row, bool asks);
    std::vector<HTREEITEM> RowsIn(const QRect& part) const; // part begins with a row
    QRect WholeRowsOf(const QRect& part) const;
    QRect ShownPart() const; // of the client area, which may be wider than the window's parent
    NMTVCUSTOMDRAW Describe(HDC context, const TreeItem& item) const;
    LRESULT Ask(NMTVCUSTOMDRAW& draw, DWORD stage);
    void DrawLines(const gdi::DeviceContext& dc, const TreeItem& item, QRect branch) const;
    void DrawButton(const gdi::DeviceContext& dc, const TreeItem& item, const QRect& branch) const;
    void DrawLabel(const NMTVCUSTOMDRAW& draw, const TreeItem& item, const Places& places) const;

    TreeHandles m_handles;
    bool m_drawsBeyondRows = false; // at the last painting, in part or as a whole
    struct Delay {
        KeptPlace Kept;
        int Rows; // that are shown, with those of steps that Qt's layout doesn't know yet
    };
    std::optional<Delay> m_delay;    // of the layout
    HTREEITEM m_lastCaret = nullptr; // when the caret was taken away
};
