// Messages above a window.
#pragma once

#include <QMessageBox>

namespace atlashost
{

// Shows a message until the user closes it, and returns at once. The box deletes itself.
QMessageBox& ShowMessage(QWidget& window, QMessageBox::Icon icon, const QString& text);

} // namespace atlashost
