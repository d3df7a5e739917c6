#include "ProgramIcon.h"

#include "ProgramIconSource.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace atlashost
{

QIcon ProgramIcon()
{
    QSvgRenderer renderer{QByteArray{ProgramIconSource}};
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        QPixmap picture{side, side};
        picture.fill(Qt::transparent);
        QPainter painter{&picture};
        renderer.render(&painter);
        icon.addPixmap(picture);
    }
    return icon;
}

} // namespace atlashost
