#include "ScrollBarPicture.h"

#include <QPainter>
#include <QScrollBar>
#include <QStyle>
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

bool ScrollBarPicture::Paint(QScrollBar& bar, const QStyleOptionSlider& option)
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
    if (m_image.isNull() || look != m_look) {
        m_look = look;
        m_image = QImage(option.rect.size() * look.Scale, QImage::Format_RGB32);
        m_image.setDevicePixelRatio(look.Scale);
        QPainter painter(&m_image);
        painter.fillRect(option.rect, option.palette.window());
        QStyleOptionSlider whole = option;
        whole.subControls = QStyle::SC_All;
        bar.style()->drawComplexControl(QStyle::CC_ScrollBar, &whole, &painter, &bar);
    }
    QPainter(&bar).drawImage(0, 0, m_image);
    return true;
}
