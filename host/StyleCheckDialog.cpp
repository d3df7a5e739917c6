#include "StyleCheckDialog.h"

#include "WindowText.h"

#include <bindings/distinct/Likeness.h>
#include <bindings/terminal/StyleWords.h>
#include <styleatlas-qt.h>

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace atlashost
{
namespace
{

constexpr int GoodHeight = 340;
constexpr int RoomForScrollBar = 60;
constexpr QSize Sample{44, 18};

enum Column : int { Quantity, FirstCurve, SecondCurve, Reason };

// On paper: a dark desktop would hide a dark curve.
QIcon SampleOnPaper(const styleatlas::Style& style, qreal scale)
{
    QPixmap picture{Sample * scale};
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::white);
    QPainter painter{&picture};
    styleatlas::DrawLegendSample(painter, {{}, Sample}, style);
    QIcon icon{picture};
    icon.addPixmap(picture, QIcon::Selected); // a selected line keeps the colours
    return icon;
}

} // namespace

StyleCheckDialog::StyleCheckDialog(const Plot& plot, Marker mark, QWidget* parent)
    : QDialog{parent}, m_plot{plot}, m_mark{std::move(mark)}
{
    setWindowTitle(WindowText("Check styles"));
    MakeParts();
}

void StyleCheckDialog::MakeParts()
{
    m_summary = new QLabel;
    m_summary->setWordWrap(true);
    m_list = new QTreeWidget;
    m_list->setHeaderLabels(
        {WindowText("Quantity"), WindowText("Curve"), WindowText("Looks like"), WindowText("Reason")});
    m_list->setRootIsDecorated(false);
    m_list->setAllColumnsShowFocus(true);
    m_list->setIconSize(Sample);
    auto* const note = new QLabel{
        Text("Colour differences (CIEDE2000) below %1 are hard to tell apart, and contrasts below %2 "
             "hard to see. Curves are compared with those of the same panel.",
             {std::to_string(static_cast<int>(styleatlas::distinct::MinDifference)),
              std::to_string(static_cast<int>(styleatlas::distinct::MinContrast))})
            .c_str()};
    note->setWordWrap(true);
    auto* const buttons = new QDialogButtonBox{QDialogButtonBox::Close};
    m_markButton = buttons->addButton(WindowText("&Mark in the plot"), QDialogButtonBox::ActionRole);
    m_unmarkButton = buttons->addButton(WindowText("&Unmark"), QDialogButtonBox::ActionRole);
    auto* const layout = new QVBoxLayout{this};
    for (QWidget* const part : std::initializer_list<QWidget*>{m_summary, m_list, note, buttons})
        layout->addWidget(part);
    // Return belongs to the list.
    for (QAbstractButton* const button : buttons->buttons())
        static_cast<QPushButton*>(button)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &StyleCheckDialog::Unmark);
    connect(m_markButton, &QPushButton::clicked, this, &StyleCheckDialog::MarkCurrent);
    connect(m_unmarkButton, &QPushButton::clicked, this, &StyleCheckDialog::Unmark);
    connect(m_list, &QTreeWidget::itemActivated, this, &StyleCheckDialog::MarkCurrent);
}

void StyleCheckDialog::BringUp()
{
    if (isHidden()) {
        show();
        Renew();
        m_list->setFocus();
        if (!m_wasShown)
            Place();
        m_wasShown = true;
    }
    raise();
    activateWindow();
}

// Wide enough for the reasons, and over the lower edge of the parent, to leave the first panels in sight.
void StyleCheckDialog::Place()
{
    const QRect above = parentWidget()->frameGeometry();
    resize(std::min(std::max(width(), m_list->header()->length() + RoomForScrollBar), above.width()),
           GoodHeight);
    move(above.center().x() - width() / 2, above.bottom() - frameGeometry().height());
}

void StyleCheckDialog::Renew()
{
    if (isHidden())
        return;
    m_list->clear();
    m_check = CheckStyles(m_plot);
    for (const auto* const remarks : {&m_check.pairs, &m_check.faint})
        std::ranges::for_each(*remarks, [this](const CurveRemark& remark) { Add(remark); });
    m_summary->setText(Summary());
    const bool isAny = m_list->topLevelItemCount() > 0;
    m_list->setEnabled(isAny);
    m_markButton->setEnabled(isAny);
    if (isAny)
        m_list->setCurrentItem(m_list->topLevelItem(0));
    for (const Column column : {Quantity, FirstCurve, SecondCurve, Reason})
        m_list->resizeColumnToContents(column);
    Unmark();
}

void StyleCheckDialog::Add(const CurveRemark& remark)
{
    auto* const line = new QTreeWidgetItem{m_list};
    const Panel& panel = m_plot.panels[remark.curve.panel];
    int column = FirstCurve;
    for (const CurvePlace place : remark.Curves()) {
        const Curve& curve = panel.curves[place.curve];
        line->setIcon(column, SampleOnPaper(curve.style, devicePixelRatioF()));
        line->setText(column, QString{"%1  %2"}.arg(curve.fileColumn + 1).arg(curve.fileName.c_str()));
        line->setToolTip(column++, styleatlas::terminal::InWords(curve.style, Text).c_str());
    }
    line->setText(Quantity, panel.title.c_str());
    line->setText(Reason, remark.reason.c_str());
    line->setToolTip(Reason, remark.reason.c_str());
}

QString StyleCheckDialog::Summary() const
{
    if (m_plot.panels.empty())
        return WindowText("There is no curve to check.");
    if (m_list->topLevelItemCount() == 0)
        return WindowText("None: every curve can be seen and told apart from the others.");
    std::string summary = Text("Pairs of curves that look alike: %1. Curves that are hard to see: %2.",
                               {std::to_string(m_check.pairs.size()), std::to_string(m_check.faint.size())});
    if (m_check.leftOut > 0)
        summary += " " + Text("%1 more are not listed.", {std::to_string(m_check.leftOut)});
    return summary.c_str();
}

void StyleCheckDialog::MarkCurrent()
{
    const auto row = static_cast<std::size_t>(m_list->indexOfTopLevelItem(m_list->currentItem()));
    const bool isPair = row < m_check.pairs.size();
    m_mark((isPair ? m_check.pairs[row] : m_check.faint[row - m_check.pairs.size()]).Curves());
    m_unmarkButton->setEnabled(true);
}

void StyleCheckDialog::Unmark()
{
    m_mark({});
    m_unmarkButton->setEnabled(false);
}

} // namespace atlashost
