// atlas-host: a measurement host. It reads files of measured data, knows the quantities from the unit
// library, and asks the style atlas how each curve is drawn.
#include "Commands.h"
#include "Display.h"
#include "InputFiles.h"
#include "Options.h"
#include "SettingsFolder.h"
#include "Text.h"

#include "styleatlas.h"

#include <clocale>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

namespace atlashost
{
namespace
{

bool HasWindow(const Options& options)
{
    return options.action == Action::Window ||
           (options.action == Action::Plot && options.plot.png == nullptr);
}

// Without the folder a layout cannot be saved; the styles are shown all the same.
void PrepareSettings(std::string_view hostName)
{
    try {
        CreateSettingsFolder(hostName);
    } catch (const std::filesystem::filesystem_error& error) {
        Tell(std::string{"the folder for the layout cannot be made: "} + error.what());
    }
}

// A command that the style atlas answers. The editor alone goes without an application object of the
// program's own, as in the many hosts that know nothing of Qt.
int RunAsHost(const Options& options)
{
    std::optional<Desktop> desktop;
    if (HasWindow(options)) {
        if (!HasDisplay()) {
            Tell(options.action == Action::Window
                     ? "there is no display to show the window on"
                     : "there is no display to show the plot on; --png FILE writes it into a file");
            return Failed;
        }
        desktop.emplace();
    } else if (options.action != Action::Edit) {
        ForgetDisplay();
    }
    PrepareSettings(options.hostName);
    StyleAtlasSetApplication(ToUtf16(options.hostName).c_str());
    switch (options.action) {
    case Action::List:
        return ListCurves(options.files);
    case Action::Plot:
        return PlotCurves(options.files, options.plot);
    case Action::Window:
        return ShowWindow(options.hostName, options.files);
    case Action::Edit:
        return ShowEditor();
    default:
        return ShowTable(options.fileColumn);
    }
}

int Run(const Options& options)
{
    switch (options.action) {
    case Action::Help:
        std::cout << Usage;
        return Succeeded;
    case Action::Version:
        std::cout << ProgramName << " " ATLAS_HOST_VERSION "\n";
        return Succeeded;
    case Action::Prepare:
        return PrepareFolder(options.hostName);
    case Action::ShowLayout:
        return ShowLayouts(options.files);
    case Action::CheckLayout:
        return CheckLayouts(options.files);
    case Action::CompareLayouts:
        return CompareLayouts(options.files[0], options.files[1]);
    default:
        return RunAsHost(options);
    }
}

int RunAndFlush(const Options& options)
{
    try {
        const int status = Run(options);
        if (std::cout.flush())
            return status;
        Tell("the output cannot be written");
    } catch (const std::exception& error) {
        Tell(error.what());
    }
    return options.action == Action::CompareLayouts ? ComparisonFailed : Failed;
}

} // namespace
} // namespace atlashost

int main(int argc, char** argv)
{
    std::setlocale(LC_ALL, "");
    try {
        return atlashost::RunAndFlush(atlashost::ReadOptions(argc, argv));
    } catch (const atlashost::UsageError& error) {
        atlashost::Tell(std::string{error.what()} + "; try --help");
        return atlashost::WrongUsage;
    }
}
