#include "UserDialog.h"

#include "Commands.h"
#include "LayoutTool.h"
#include "WindowText.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

#include <stdexcept>

namespace atlashost
{
namespace
{

constexpr int FieldWidth = 320; // pixels

QLineEdit* AddField(QFormLayout& layout, const QString& label, const QString& text)
{
    auto* const field = new QLineEdit{text};
    field->setMinimumWidth(FieldWidth);
    layout.addRow(label, field);
    return field;
}

} // namespace

UserSettings FirstSettings(const QString& hostName)
{
    const ToolResult result = RunLayoutTool({"key", "--", hostName.toStdString()}, ToolErrors::Printed);
    if (result.status != Succeeded)
        throw std::runtime_error{Text("the settings of this host cannot be found out")};
    const QString key = QString::fromStdString(result.output).trimmed();
    return {key.section('\\', 0, 0), key.section('\\', 1)};
}

bool AskForSettings(QWidget* parent, UserSettings& settings)
{
    QDialog dialog{parent};
    dialog.setWindowTitle(WindowText("Switch user"));
    auto* const layout = new QFormLayout{&dialog};
    layout->addRow(
        new QLabel{WindowText("The settings are read below HKEY_USERS in the registry of the style atlas.")});
    const QLineEdit* const root = AddField(*layout, WindowText("User &root:"), settings.root);
    const QLineEdit* const subKey = AddField(*layout, WindowText("Sub&key:"), settings.subKey);
    auto* const buttons = new QDialogButtonBox{QDialogButtonBox::Ok | QDialogButtonBox::Cancel};
    layout->addRow(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    settings = {root->text(), subKey->text()};
    return true;
}

} // namespace atlashost
