// The last picture of a scroll bar.
#pragma once

#include <QImage>
#include <QRegion>
#include <QStyleOptionSlider>

class QScrollBar;

// A style draws a scroll bar with gradients, which takes as long as a third of a page of rows. Scrolling
// sideways repaints the bar beside the rows at each step, unchanged.
class ScrollBarPicture
{
public:
    // Paints the bar as the style would, from the picture if nothing has changed. False, without effect, for
    // a bar whose picture can't be told from its properties: under the mouse, at a broken scale, or of a
    // style that isn't known to be without animations.
    bool Paint(QScrollBar& bar, const QStyleOptionSlider& option);

private:
    // What decides on the picture.
    struct Look {
        QRect Place;
        QStyle::State State;
        int Minimum;
        int Maximum;
        int Position;
        int Page;
        qint64 Palette;
        Qt::LayoutDirection Direction;
        double Scale;

        friend bool operator==(const Look&, const Look&) = default;
    };

    Look m_look{};
    QImage m_image;
};
