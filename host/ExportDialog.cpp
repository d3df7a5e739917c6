#include "ExportDialog.h"

#include "Commands.h"
#include "WindowText.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>
#include <cmath>

namespace atlashost
{
namespace
{

constexpr int MinResolution = 36;
constexpr int MaxResolution = 1200;
constexpr int PathWidth = 320;

} // namespace

ExportDialog::ExportDialog(QSize pixels, QWidget* parent) : QDialog{parent}
{
    setWindowTitle(WindowText("Export picture"));
    MakeParts();
    ShowSize(pixels);
}

void ExportDialog::MakeParts()
{
    m_path = new QLineEdit{"plot.png"};
    m_path->setMinimumWidth(PathWidth);
    auto* const browse = new QPushButton{WindowText("&Browse...")};
    auto* const file = new QHBoxLayout;
    file->addWidget(m_path);
    file->addWidget(browse);
    m_width = new QDoubleSpinBox;
    m_height = new QDoubleSpinBox;
    m_unit = new QComboBox;
    m_unit->addItems({WindowText("pixels"), "mm"});
    auto* const size = new QHBoxLayout;
    size->addWidget(m_width);
    size->addWidget(new QLabel{"×"});
    size->addWidget(m_height);
    size->addWidget(m_unit);
    size->addStretch();
    m_resolution = new QSpinBox;
    m_resolution->setRange(MinResolution, MaxResolution);
    m_resolution->setValue(static_cast<int>(ScreenResolution));
    m_resolution->setSuffix(" dpi");
    auto* const buttons = new QDialogButtonBox{QDialogButtonBox::Cancel};
    m_export = buttons->addButton(WindowText("&Export"), QDialogButtonBox::AcceptRole);
    auto* const form = new QFormLayout{this};
    form->addRow(WindowText("File (.png, .svg or .pdf):"), file);
    form->addRow(WindowText("Width and height:"), size);
    form->addRow(WindowText("Resolution:"), m_resolution);
    form->addRow(buttons);
    connect(m_path, &QLineEdit::textChanged, this, &ExportDialog::Check);
    connect(browse, &QPushButton::clicked, this, &ExportDialog::Browse);
    connect(m_unit, &QComboBox::currentIndexChanged, this, &ExportDialog::ChangeUnit);
    connect(buttons, &QDialogButtonBox::accepted, this, &ExportDialog::AcceptOrAsk);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void ExportDialog::Browse()
{
    QFileDialog dialog{this, WindowText("Export picture"), m_path->text(),
                       WindowText("Pictures (*.png *.svg *.pdf)")};
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("png");
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_confirmed = dialog.selectedFiles().constFirst();
    m_path->setText(m_confirmed);
}

void ExportDialog::AcceptOrAsk()
{
    const QString path = m_path->text();
    if (path == m_confirmed || !QFile::exists(path) ||
        QMessageBox::question(this, windowTitle(), WindowText("%1 exists. Replace it?", path)) ==
            QMessageBox::Yes)
        accept();
}

QString ExportDialog::Path() const
{
    return m_path->text();
}

PictureSize ExportDialog::Size() const
{
    const double resolution = m_resolution->value();
    const double scale = m_shownUnit == Pixels ? 1 : resolution / MillimetresOfInch;
    const auto side = [scale](double value) {
        return std::clamp(static_cast<int>(std::lround(value * scale)), MinSide, MaxSide);
    };
    return {{side(m_width->value()), side(m_height->value())}, resolution};
}

// The picture keeps its size.
void ExportDialog::ChangeUnit()
{
    const QSize pixels = Size().pixels;
    m_shownUnit = static_cast<Unit>(m_unit->currentIndex());
    ShowSize(pixels);
}

void ExportDialog::ShowSize(QSize pixels)
{
    const double scale = m_shownUnit == Pixels ? 1 : MillimetresOfInch / m_resolution->value();
    for (const auto& [box, side] : {std::pair{m_width, pixels.width()}, {m_height, pixels.height()}}) {
        box->setDecimals(m_shownUnit == Pixels ? 0 : 1);
        box->setRange(m_shownUnit == Pixels ? MinSide : 1, MaxSide);
        box->setValue(side * scale);
    }
}

void ExportDialog::Check()
{
    m_export->setEnabled(FormatOf(QFile::encodeName(m_path->text()).toStdString()).has_value());
}

} // namespace atlashost
