#include "StartPage.h"

#include "WindowText.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace atlashost
{
namespace
{

constexpr int IconSide = 96; // pixels
constexpr int TextWidth = 460;
constexpr int Gap = 14;

QLabel* MakeLabel(const QString& text, QPalette::ColorRole color, qreal size)
{
    auto* const label = new QLabel{text};
    label->setForegroundRole(color);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * size);
    label->setFont(font);
    label->setFixedSize(TextWidth, label->heightForWidth(TextWidth));
    return label;
}

} // namespace

StartPage::StartPage(QAction& open, QWidget& parent) : QWidget{&parent}
{
    auto* const icon = new QLabel;
    icon->setPixmap(window()->windowIcon().pixmap(QSize{IconSide, IconSide}, devicePixelRatioF()));
    auto* const title =
        MakeLabel(WindowText("Open measured files (Ctrl+O), or drop them here."), QPalette::Text, 1.3);
    auto* const button = new QPushButton{open.text()};
    connect(button, &QPushButton::clicked, &open, &QAction::trigger);
    auto* const layout = new QVBoxLayout{this};
    layout->setSpacing(Gap);
    layout->addStretch();
    layout->addWidget(icon, 0, Qt::AlignCenter);
    layout->addWidget(title, 0, Qt::AlignCenter);
    layout->addWidget(button, 0, Qt::AlignCenter);
    layout->addWidget(
        MakeLabel(WindowText("A measured file is a table in text form, as spreadsheets write it: a line of "
                             "headings, then a line for each point of time, which stands first. The headings "
                             "name the quantities, for instance Ozone or Wind. Each quantity gets a panel, "
                             "and the style atlas says how each curve is drawn."),
                  QPalette::PlaceholderText, 1),
        0, Qt::AlignCenter);
    layout->addStretch();
    auto* const around = new QVBoxLayout{&parent};
    around->addWidget(this);
}

} // namespace atlashost
