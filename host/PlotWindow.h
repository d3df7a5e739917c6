// A plot on the screen.
#pragma once

#include "PlotData.h"

#include <QMainWindow>

namespace atlashost
{

// A plot of at least one panel, and a status bar. Esc closes the window. The plot must outlive it.
class PlotWindow : public QMainWindow
{
public:
    explicit PlotWindow(const Plot& plot);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace atlashost
