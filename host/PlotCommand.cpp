#include "Commands.h"

#include "InputFiles.h"
#include "PictureFile.h"
#include "PlotData.h"
#include "PlotLayout.h"
#include "PlotPainter.h"
#include "PlotWindow.h"

#include <QApplication>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace atlashost
{
namespace
{

constexpr const char* DisplayVariables[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};

bool HasDisplay()
{
    return std::ranges::any_of(DisplayVariables, [](const char* name) {
        const char* const value = std::getenv(name);
        return value != nullptr && *value != '\0';
    });
}

// Where the display that is named cannot be opened, Qt would abort the program. What Qt warns of otherwise,
// of folders and fonts that are missing, matters little to the user of a plot.
void ExitOnFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message)
{
    if (type != QtFatalMsg)
        return;
    Tell("the plot cannot be shown: " + message.section('\n', 0, 0).toStdString());
    std::_Exit(Failed);
}

// The application keeps references to both.
struct QtArguments {
    int count;
    std::array<char*, 3> words;
};
char programName[] = "atlas-host";
char platformOption[] = "-platform";
char offscreen[] = "offscreen";

void DrawIntoFile(const Plot& plot, const PlotTarget& target)
{
    QtArguments arguments{3, {programName, platformOption, offscreen}};
    const QGuiApplication application{arguments.count, arguments.words.data()};
    const QSize size = target.width > 0 ? QSize{target.width, target.height} : GoodSize(plot.panels.size());
    QImage picture{size, QImage::Format_RGB32};
    if (picture.isNull())
        throw std::runtime_error{"the memory does not hold a picture of this size"};
    QPainter painter{&picture};
    if (const std::size_t missing = DrawPlot(painter, size, plot); missing > 0)
        Tell("quantities that have no room in the picture: " + std::to_string(missing));
    painter.end();
    WritePng(picture, target.png);
}

void ShowWindow(const Plot& plot)
{
    QtArguments arguments{1, {programName}};
    const QApplication application{arguments.count, arguments.words.data()};
    PlotWindow window{plot};
    window.show();
    QApplication::exec();
}

} // namespace

int PlotCurves(std::span<const char* const> paths, const PlotTarget& target)
{
    if (target.png == nullptr && !HasDisplay()) {
        Tell("there is no display to show the plot on; --png FILE writes it into a file");
        return Failed;
    }
    const Plot plot = ReadPlot(paths);
    if (plot.panels.empty()) {
        Tell("there is no curve to plot");
        return Failed;
    }
    qInstallMessageHandler(ExitOnFatal);
    if (target.png != nullptr)
        DrawIntoFile(plot, target);
    else
        ShowWindow(plot);
    return plot.status;
}

} // namespace atlashost
