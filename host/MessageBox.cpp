#include "MessageBox.h"

namespace atlashost
{

QMessageBox& ShowMessage(QWidget& window, QMessageBox::Icon icon, const QString& text)
{
    auto* const box = new QMessageBox{icon, window.windowTitle(), text, QMessageBox::Ok, &window};
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->open();
    return *box;
}

} // namespace atlashost
