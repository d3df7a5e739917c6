#include "PopupPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

QRect OnScreenOf(const QWidget& owner, QRect rectangle)
{
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        return rectangle;
    const QRect place(owner.mapToGlobal(QPoint(0, 0)), owner.size());
    const QScreen* const ofOwner = QGuiApplication::screenAt(place.center());
    const QRect screen = (ofOwner != nullptr ? ofOwner : owner.screen())->geometry();
    if (rectangle.right() > screen.right())
        rectangle.moveRight(screen.right());
    if (rectangle.left() < screen.left())
        rectangle.moveLeft(screen.left());
    if (rectangle.bottom() > screen.bottom())
        rectangle.translate(0, -(rectangle.height() + place.height()));
    return rectangle;
}
