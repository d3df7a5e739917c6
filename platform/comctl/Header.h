// The header: headings of columns, whose dividers the user can drag.
#pragma once

#include <QHeaderView>
#include <WidgetWindow.h>
#include <commctrl.h>

class QStandardItemModel;

// Asks its parent at each step of a drag, and tells it of clicks. What messages change is told to nobody.
class HeaderWindow : public ScrollAreaWindow<QHeaderView>
{
public:
    HeaderWindow(DWORD style, QWidget* parent);

protected:
    LRESULT OnDefault(UINT message, WPARAM wParam, LPARAM lParam) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    bool Has(int index) const { return index >= 0 && index < count(); }

    // What the messages of these names do.
    LRESULT Insert(int index, const HDITEMW* item);
    LRESULT Get(int index, HDITEMW* item) const;
    LRESULT Layout(const HDLAYOUT* layout) const;

    int FittingHeight() const;
    void SetWidth(int index, int width); // any number of pixels
    void OnResized(int index, int before, int after);
    LRESULT TellOfWidth(int code, int index, HDITEMW& item);
    void TellOfClick(int code, int index);

    QStandardItemModel* m_items; // texts and their alignment; the view has the widths
    bool m_isDragging = false;
};
