// Asks for the size and the file of a picture.
#pragma once

#include "PictureFile.h"

#include <QDialog>
#include <QString>

class QComboBox;
class QDoubleSpinBox;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace atlashost
{

// The suffix of the file decides on the format; there is none before the user has chosen a file that has one.
class ExportDialog : public QDialog
{
public:
    // Begins with this size at the resolution of the screen.
    ExportDialog(QSize pixels, QWidget* parent);

    QString Path() const;
    PictureSize Size() const;

private:
    enum Unit { Pixels, Millimetres };

    void MakeParts();
    void Browse();
    void AcceptOrAsk(); // asks before a file is replaced
    void ChangeUnit();
    void ShowSize(QSize pixels);
    void Check();

    QLineEdit* m_path = nullptr;
    QString m_confirmed; // the path whose file may be replaced
    QDoubleSpinBox* m_width = nullptr;
    QDoubleSpinBox* m_height = nullptr;
    QComboBox* m_unit = nullptr;
    QSpinBox* m_resolution = nullptr;
    QPushButton* m_export = nullptr;
    Unit m_shownUnit = Pixels;
};

} // namespace atlashost
