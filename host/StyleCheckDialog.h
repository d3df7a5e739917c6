// The dialog that lists curves which look alike or are hard to see.
#pragma once

#include "StyleCheck.h"

#include <QDialog>

#include <functional>

class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace atlashost
{

// Is not modal. Return or a double click on a line marks its curves in the plot, until the dialog is closed.
class StyleCheckDialog : public QDialog
{
public:
    using Marker = std::function<void(std::vector<CurvePlace>)>;

    // The plot must outlive the dialog.
    StyleCheckDialog(const Plot& plot, Marker mark, QWidget* parent);

    // Shows the dialog, or brings it to the front.
    void BringUp();

    // To be called when the plot has other curves or styles.
    void Renew();

private:
    void MakeParts();
    void Place();
    void Add(const CurveRemark& remark);
    void MarkCurrent();
    void Unmark();
    QString Summary() const;

    const Plot& m_plot;
    const Marker m_mark;
    StyleCheck m_check;
    bool m_wasShown = false;
    QLabel* m_summary = nullptr;
    QTreeWidget* m_list = nullptr;
    QPushButton* m_markButton = nullptr;
    QPushButton* m_unmarkButton = nullptr;
};

} // namespace atlashost
