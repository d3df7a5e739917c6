// What windows answer to screen readers, and the objects that Qt hands to those.
#pragma once

#include <QRect>
#include <QString>

class Window;

// The answers of the attached object, with the numbers of its parts from 1 on.
namespace accessible
{

constexpr int self = 0; // the window, instead of a part

int PartCount(const Window& window);
QString NameOf(const Window& window, int part); // empty if the object gives none
int FocusedPart(const Window& window);          // self for none
QRect PlaceOf(const Window& window, int part);  // on the screen; empty if the object gives none

// A text without the marks of its underlined characters.
QString WithoutMnemonic(const QString& text);

// Forgets an object that Qt has made already, for a window that has become another kind of control.
void Renew(Window& window);

// Makes Qt ask Window::NewAccessible. It may be called again.
void Install();

} // namespace accessible
