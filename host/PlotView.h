// A plot as a part of a window.
#pragma once

#include "PlotScope.h"

#include <QString>
#include <QWidget>

#include <vector>

namespace atlashost
{

// Shows a plot, which must outlive it, in any size.
class PlotView : public QWidget
{
public:
    explicit PlotView(const Plot& plot, QWidget* parent = nullptr);

    // The text that is shown instead of a plot without panels.
    void SetHint(const QString& hint) { m_hint = hint; }

    // To be called when the plot holds other curves: shows all of them.
    void ShowNewPlot();

    // To be called when curves have other styles.
    void ShowNewStyles();

    // Pales all other curves, until there is a new plot; an empty list ends that.
    void Mark(std::vector<CurvePlace> curves);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Plot& m_plot;
    PlotScope m_scope;
    QString m_hint;
};

// The size, limited to what the widget's screen has room for.
QSize FittingSize(const QWidget& widget, QSize size);

} // namespace atlashost
