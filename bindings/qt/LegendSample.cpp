#include <styleatlas-qt.h>

#include <QIconEngine>
#include <QPixmap>

namespace styleatlas
{
namespace
{

class LegendIconEngine : public QIconEngine
{
public:
    explicit LegendIconEngine(const Style& style) : m_style{style} {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        DrawLegendSample(*painter, rect, m_style);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override
    {
        QPixmap picture{size};
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::transparent);
        QPainter painter{&picture};
        paint(&painter, QRect{{}, size / scale}, mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new LegendIconEngine{m_style}; }

private:
    Style m_style;
};

} // namespace

void DrawLegendSample(QPainter& painter, const QRect& rect, const Style& style)
{
    const QPoint middle{rect.left() + rect.width() / 2, rect.top() + rect.height() / 2};
    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    painter.setPen(LinePen(style));
    painter.drawLine(rect.left(), middle.y(), rect.left() + rect.width(), middle.y());
    DrawSymbol(painter, middle, style);
    painter.restore();
}

QIcon LegendIcon(const Style& style)
{
    return QIcon{new LegendIconEngine{style}};
}

} // namespace styleatlas
