#include "Commands.h"

#include "FileLimit.h"
#include "PictureFile.h"
#include "PlotData.h"
#include "PlotLayout.h"
#include "PlotPainter.h"
#include "PlotWindow.h"
#include "QtStartup.h"
#include "Report.h"
#include "Texts.h"

#include <QApplication>
#include <QPainter>

#include <array>
#include <string>

namespace atlashost
{
namespace
{

// The application keeps references to both members.
struct QtArguments {
    int count;
    std::array<char*, 3> words;
};
char programName[] = "atlas-host";
char platformOption[] = "-platform";
char offscreen[] = "offscreen";

void DrawIntoFile(const Plot& plot, const PlotTarget& target)
{
    ExitWhereQtWouldAbort();
    QtArguments arguments{3, {programName, platformOption, offscreen}};
    const QGuiApplication application{arguments.count, arguments.words.data()};
    const QSize size = target.width > 0 ? QSize{target.width, target.height} : GoodSize(plot.panels.size());
    std::size_t missing = 0;
    WritePicture(target.path, target.format, {size}, [&](QPainter& painter, QSize room) {
        missing = DrawPlot(painter, room, plot).missingPanels;
    });
    if (missing > 0)
        PrintError(Text("quantities that have no room in the picture: %1", {std::to_string(missing)}));
}

void ShowWindow(const Plot& plot)
{
    PlotWindow window{plot};
    window.show();
    QApplication::exec();
}

} // namespace

int PlotCurves(std::span<const char* const> paths, const PlotTarget& target)
{
    if (const std::string remark = FileLimitRemark(paths.size()); !remark.empty())
        PrintError(remark);
    const Plot plot = ReadPlot(paths, PrintError);
    if (plot.panels.empty()) {
        PrintError(Text("there is no curve to plot"));
        return Failed;
    }
    if (target.path != nullptr)
        DrawIntoFile(plot, target);
    else
        ShowWindow(plot);
    return plot.status;
}

} // namespace atlashost
