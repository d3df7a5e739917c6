// Where a popup goes on a desktop of several screens.
#pragma once

#include <QRect>

class QWidget;

// Moves a rectangle that reaches beyond the owner's screen to its left or right edge, or above the owner. No
// effect on a desktop that keeps the positions of windows to itself, and its popups on the screen.
QRect OnScreenOf(const QWidget& owner, QRect rectangle);
