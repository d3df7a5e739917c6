#include "Commands.h"

#include "Display.h"
#include "InputFiles.h"
#include "LibraryCalls.h"
#include "MainWindow.h"

#include <string>

namespace atlashost
{

int ShowWindow(std::string_view hostName, std::span<const char* const> paths)
{
    if (!HasDisplay()) {
        Tell("there is no display to show the window on");
        return Failed;
    }
    const Desktop desktop;
    MainWindow window{QString::fromUtf8(hostName.data(), static_cast<qsizetype>(hostName.size()))};
    window.AddFiles({paths.begin(), paths.end()});
    window.show();
    desktop.Run();
    return Succeeded;
}

// No application object of Qt is made here: most hosts know nothing of Qt, and the style atlas then has to
// bring its own and tell for itself whether there is a display.
int ShowEditor()
{
    switch (EditStyleAtlas(0)) {
    case EditorOk:
        return Succeeded;
    case EditorCancelled:
        return Cancelled;
    default:
        Tell(HasDisplay() ? "the editor cannot be shown; does the display answer?"
                          : "there is no display to show the editor on");
        return Failed;
    }
}

} // namespace atlashost
