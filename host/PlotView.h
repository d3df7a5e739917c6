// A plot as a part of a window.
#pragma once

#include "PlotLayout.h"
#include "PlotScope.h"
#include "PlotZoom.h"
#include "ReadingFinder.h"

#include <QImage>
#include <QString>
#include <QWidget>

#include <cstddef>
#include <optional>
#include <vector>

namespace atlashost
{

// Shows a plot, which must outlive it, in any size.
//
// The wheel zooms at the pointer: both axes, with Ctrl or on the labels of the times only these, with Shift
// or on the labels of the values only these. Dragging shows what is within the rectangle; dragging with Shift
// or another button moves the curves; a double click shows everything. The keys are +, -, 0, Home and the
// arrows. What is under the pointer goes to the window's status bar as a status tip.
class PlotView : public QWidget
{
public:
    explicit PlotView(const Plot& plot, QWidget* parent = nullptr);

    // The text that is shown instead of a plot without panels.
    void SetHint(const QString& hint) { m_hint = hint; }

    // To be called when the plot holds other curves: shows all of them.
    void ShowNewPlot();

    // To be called when curves have other styles.
    void ShowNewStyles() { Redraw(); }

    // Pales all other curves, until there is a new plot; an empty list ends that.
    void Mark(std::vector<CurvePlace> curves);

    void ShowEverything();
    void ZoomIn();
    void ZoomOut();

    const Plot& ShownPlot() const { return m_plot; }
    const PlotScope& Scope() const { return m_scope; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // From the press of a button to its release.
    struct Drag {
        enum class Kind { Band, Pan } kind = Kind::Band;
        QPoint start;
        QPoint end;
        std::size_t panel = 0;
        PanelLayout layout; // at the start
    };

    void Redraw();
    void DrawPicture();
    void DrawOverlay(QPainter& painter) const;
    QRect Band() const;
    void ShowBand(const Drag& drag, QRect band);
    void ZoomCentre(double factor);
    void PanBy(QPoint share);
    void PointAt(QPoint point);
    void Tell(const QString& text);

    const Plot& m_plot;
    PlotScope m_scope;
    PlotZoom m_zoom{m_plot, m_scope};
    QString m_hint;
    QImage m_picture; // null if it has to be drawn anew
    PlotLayout m_layout;
    std::size_t m_panel = 0; // which the pointer was on last
    std::optional<FoundReading> m_found;
    std::optional<Drag> m_drag;
};

// The size, limited to what the widget's screen has room for.
QSize FittingSize(const QWidget& widget, QSize size);

} // namespace atlashost
