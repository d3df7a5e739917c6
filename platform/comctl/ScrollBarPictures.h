// The last pictures of a scroll bar.
#pragma once

#include <QImage>
#include <QStyleOptionSlider>
#include <deque>

class QScrollBar;

// A style draws a scroll bar with gradients, which takes as long as a third of a page of rows. Scrolling
// sideways repaints the bar beside the rows at each step, unchanged, and line by line the other one has few
// positions.
class ScrollBarPictures
{
public:
    // Paints the bar as the style would, from a picture if it has looked so before. False, without effect,
    // for a bar whose look doesn't follow from its properties: under the mouse, at a broken scale, or of a
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
    struct Picture {
        Look Shown;
        QImage Image;
    };
    static constexpr std::size_t maxCount = 32;

    const QImage& ImageOf(const Look& look, QScrollBar& bar, const QStyleOptionSlider& option);

    std::deque<Picture> m_pictures; // the newest at the end
};
