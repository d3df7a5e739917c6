// Keys that close a popup.
#pragma once

class QEvent;
class QObject;

// For every event of the program before it is handled. True if it is the press of a key that has closed a
// popup of ours: the key mustn't act on the dialog behind it as well.
bool EndsWithPopup(const QObject* receiver, const QEvent& event);
