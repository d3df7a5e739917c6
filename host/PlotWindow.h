// A plot on the screen.
#pragma once

#include "PlotView.h"

namespace atlashost
{

// A plot of at least one panel and nothing else. Esc closes the window.
class PlotWindow : public PlotView
{
public:
    explicit PlotWindow(const Plot& plot);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace atlashost
