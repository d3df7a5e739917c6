#include "ScrollBarPictures.h"

#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>
#include <cmath>

namespace
{

bool IsDecidedByOption(const QScrollBar& bar)
{
    const bool isWholeScale = bar.devicePixelRatio() == std::floor(bar.devicePixelRatio());
    return isWholeScale && !bar.underMouse() && !bar.isSliderDown() &&
           qstrcmp(bar.style()->metaObject()->className(), "QFusionStyle") == 0;
}

} // namespace

bool ScrollBarPictures::Paint(QScrollBar& bar, const QStyleOptionSlider& option)
{
    if (!IsDecidedByOption(bar))
        return false;
    const Look look{option.rect,
                    option.state,
                    option.minimum,
                    option.maximum,
                    option.sliderPosition,
                    option.pageStep,
                    option.palette.cacheKey(),
                    option.direction,
                    bar.devicePixelRatio()};
    QPainter(&bar).drawImage(0, 0, ImageOf(look, bar, option));
    return true;
}

const QImage& ScrollBarPictures::ImageOf(const Look& look, QScrollBar& bar, const QStyleOptionSlider& option)
{
    const auto known = std::ranges::find(m_pictures, look, &Picture::Shown);
    if (known != m_pictures.end())
        return known->Image;
    QImage image(option.rect.size() * look.Scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(look.Scale);
    QPainter painter(&image);
    painter.fillRect(option.rect, option.palette.window());
    QStyleOptionSlider whole = option;
    whole.subControls = QStyle::SC_All;
    bar.style()->drawComplexControl(QStyle::CC_ScrollBar, &whole, &painter, &bar);
    painter.end();
    if (m_pictures.size() == maxCount)
        m_pictures.pop_front();
    m_pictures.push_back({look, image});
    return m_pictures.back().Image;
}
