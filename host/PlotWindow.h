// PlotWindow.h: a plot on the screen.
#pragma once

#include "PlotData.h"

#include <QWidget>

namespace atlashost
{

// Shows a plot of one panel or more, which outlives it, in whatever size the user gives it. Esc closes it.
class PlotWindow : public QWidget
{
public:
    explicit PlotWindow(const Plot& plot);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const Plot& m_plot;
};

} // namespace atlashost
