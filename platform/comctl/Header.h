// The header: headings of columns with dividers that the user can drag.
#pragma once

#include <QHeaderView>
#include <WidgetWindow.h>
#include <commctrl.h>

class QStandardItemModel;

// Asks its parent at each step of a drag, and notifies it of clicks, but not of changes by messages.
class HeaderWindow : public ScrollAreaWindow<QHeaderView>
{
public:
    HeaderWindow(DWORD style, QWidget* parent);

protected:
    LRESULT OnDefault(UINT message, WPARAM wParam, LPARAM lParam) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool Has(int index) const { return index >= 0 && index < count(); }

    // Implement the messages of these names.
    LRESULT Insert(int index, const HDITEMW* item);
    LRESULT Get(int index, HDITEMW* item) const;
    LRESULT Layout(const HDLAYOUT* layout) const;

    int FittingHeight() const;
    void SetWidth(int index, int width); // pixels, limited to the possible range
    void OnResized(int index, int before, int after);
    LRESULT NotifyWidth(int code, int index, HDITEMW& item);
    void NotifyClick(int code, int index);

    QStandardItemModel* m_items; // texts and alignments; the view has the widths
    bool m_isDragging = false;
};
