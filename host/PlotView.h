// A plot as a part of a window.
#pragma once

#include "PlotData.h"

#include <QString>
#include <QWidget>

namespace atlashost
{

// Shows a plot, which must outlive it, in any size. Call update() when the plot has changed.
class PlotView : public QWidget
{
public:
    explicit PlotView(const Plot& plot, QWidget* parent = nullptr);

    // The text that is shown instead of a plot without panels.
    void SetHint(const QString& hint) { m_hint = hint; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Plot& m_plot;
    QString m_hint;
};

// The size, limited to what the widget's screen has room for.
QSize FittingSize(const QWidget& widget, QSize size);

} // namespace atlashost
