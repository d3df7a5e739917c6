#include "Commands.h"

#include "LibraryCalls.h"
#include "MainWindow.h"
#include "QtStartup.h"
#include "Report.h"
#include "Texts.h"

#include <string>
#include <utility>

namespace atlashost
{

int ShowWindow(std::string_view hostName, std::span<const char* const> paths,
               std::vector<std::string> startErrors)
{
    MainWindow window{QString::fromUtf8(hostName.data(), static_cast<qsizetype>(hostName.size()))};
    window.SetStartErrors(std::move(startErrors));
    window.show();
    window.AddFiles({paths.begin(), paths.end()});
    QApplication::exec();
    return Succeeded;
}

// Makes no application object of Qt: the style atlas brings its own, and finds out itself whether there is a
// display.
int ShowEditor()
{
    switch (EditStyleAtlas(0)) {
    case STYLEATLAS_EDIT_OK:
        return Succeeded;
    case STYLEATLAS_EDIT_CANCELLED:
        return Cancelled;
    default:
        PrintError(HasDisplay() ? Text("the editor cannot be shown; does the display answer?")
                                : Text("there is no display to show the editor on"));
        return Failed;
    }
}

} // namespace atlashost
