// What the program keeps of its windows from one start to the next, in the user's settings folder.
#pragma once

#include <QByteArrayList>

class QWidget;

namespace atlashost
{

// Size and place of a window, and the positions of its splitters, all by their object names. Without a record
// the window stays as it is.
void RestoreWindow(QWidget& window);
void KeepWindow(const QWidget& window);

// Paths, as bytes; the latest first.
QByteArrayList KeptRecentFiles();
void KeepRecentFiles(const QByteArrayList& paths);

} // namespace atlashost
