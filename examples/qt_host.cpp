// A host with Qt: the wind speed of three files as curves, with a legend and a button for the editor.
// "qt_host FILE.png" writes a picture of the window instead.
#include "layout_folder.h"

#include <QtWidgets>
#include <cmath>
#include <styleatlas-qt.h>

namespace
{

constexpr styleatlas::Key windSpeed{12, 2, 0, 3, 1};
constexpr int fileCount = 3;

class Plot : public QWidget
{
public:
    Plot() { setMinimumSize(420, 240); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        for (int file = 0; file < fileCount; ++file) {
            const auto style = styleatlas::StyleOf(file, windSpeed);
            if (!style)
                continue;
            QPolygon points;
            for (int x = 20; x <= width() - 120; x += 20)
                points << QPoint(x, height() / 2 + qRound(70 * std::sin(x / 40.0 + file)));
            painter.setPen(styleatlas::LinePen(*style));
            painter.drawPolyline(points);
            for (const QPoint& point : points)
                styleatlas::DrawSymbol(painter, point, *style);
            const QRect sample(width() - 100, 10 + 20 * file, 40, 20);
            styleatlas::DrawLegendSample(painter, sample, *style);
            painter.setPen(Qt::black);
            painter.drawText(sample.translated(46, 0), Qt::AlignVCenter, QString("file %1").arg(file + 1));
        }
    }
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv); // before the first call of the library
    MakeLayoutFolder("AirLab");
    styleatlas::SetApplication(u"AirLab");
    QWidget window;
    auto* const plot = new Plot;
    auto* const edit = new QPushButton("Styles...");
    auto* const layout = new QVBoxLayout(&window);
    layout->addWidget(plot, 1);
    layout->addWidget(edit, 0, Qt::AlignLeft);
    QObject::connect(edit, &QPushButton::clicked, [&window, plot] {
        if (styleatlas::Edit(window.winId()) == styleatlas::EditResult::Ok)
            plot->update();
    });
    if (argc > 1)
        return window.grab().save(argv[1]) ? 0 : 1;
    window.show();
    return QApplication::exec();
}
