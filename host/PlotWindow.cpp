#include "PlotWindow.h"

#include "PlotLayout.h"
#include "WindowText.h"

#include <QKeyEvent>

namespace atlashost
{

PlotWindow::PlotWindow(const Plot& plot) : PlotView{plot}
{
    setWindowTitle(WindowText("Curves"));
    resize(FittingSize(*this, GoodSize(plot.panels.size())).expandedTo(minimumSize()));
}

void PlotWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace atlashost
