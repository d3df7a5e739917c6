#include "PlotWindow.h"

#include "PlotCommands.h"
#include "PlotView.h"
#include "WindowText.h"

#include <QKeyEvent>
#include <QStatusBar>

namespace atlashost
{

PlotWindow::PlotWindow(const Plot& plot)
{
    setWindowTitle(WindowText("Curves"));
    auto* const view = new PlotView{plot};
    setCentralWidget(view);
    new PlotCommands{*view};
    const QSize bar{0, statusBar()->sizeHint().height()};
    resize(FittingSize(*this, GoodSize(plot.panels.size()) + bar).expandedTo(minimumSizeHint()));
    view->setFocus();
}

void PlotWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QMainWindow::keyPressEvent(event);
}

} // namespace atlashost
