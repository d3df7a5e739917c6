// atlas-host: a measurement host. It reads files of measured data, finds their quantities in the unit
// library, and asks the style atlas how each curve is drawn.
#include "Commands.h"
#include "LayoutTool.h"
#include "Options.h"
#include "QtStartup.h"
#include "Report.h"
#include "Texts.h"

#include "styleatlas.h"

#include <bindings/terminal/CommandLine.h>
#include <bindings/terminal/Text.h>

#include <clocale>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace atlashost
{
namespace
{

using styleatlas::terminal::ToUtf16;

bool HasWindow(const Options& options)
{
    return options.action == Action::Window ||
           (options.action == Action::Plot && options.plot.path == nullptr);
}

ToolResult PrepareFolder(std::string_view hostName, ToolErrors errors)
{
    return RunLayoutTool({"prepare", "--", std::string{hostName}}, errors);
}

// Makes the folder of the layout. Without it a layout cannot be saved, but the styles are shown all the same:
// errors are printed and, for a window that was started without a terminal, added to the list. False if the
// name of the host is not a valid one.
bool PrepareHost(std::string_view hostName, std::vector<std::string>& errors)
{
    try {
        const ToolResult result = PrepareFolder(hostName, ToolErrors::InOutput);
        if (result.status == Succeeded)
            return true;
        std::cerr << result.output;
        errors.push_back(result.output.substr(0, result.output.find_last_not_of('\n') + 1));
        return result.status != WrongUsage;
    } catch (const std::runtime_error& error) {
        PrintError(error.what());
        errors.emplace_back(error.what());
        return true;
    }
}

int PrintFolder(std::string_view hostName)
{
    const ToolResult result = PrepareFolder(hostName, ToolErrors::Printed);
    std::cout << result.output;
    return result.status;
}

// Runs a command that calls the style atlas. The command edit makes no application object, as a host without
// Qt would.
int RunAsHost(const Options& options)
{
    std::vector<std::string> startErrors;
    if (!PrepareHost(options.hostName, startErrors))
        return WrongUsage;
    std::optional<QtApplication> application;
    if (HasWindow(options)) {
        if (!HasDisplay()) {
            PrintError(options.action == Action::Window
                           ? Text("there is no display to show the window on")
                           : Text("there is no display to show the plot on; -o FILE writes it into a file"));
            return Failed;
        }
        application.emplace();
    } else if (options.action != Action::Edit) {
        ForgetDisplay();
    }
    StyleAtlasSetApplication(ToUtf16(options.hostName).c_str());
    switch (options.action) {
    case Action::List:
        return ListCurves(options.files);
    case Action::Plot:
        return PlotCurves(options.files, options.plot);
    case Action::Window:
        return ShowWindow(options.hostName, options.files, std::move(startErrors));
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
        std::cout << Usage();
        return Succeeded;
    case Action::Version:
        std::cout << ProgramName << " " ATLAS_HOST_VERSION "\n";
        return Succeeded;
    case Action::Prepare:
        return PrintFolder(options.hostName);
    case Action::Layout:
        BecomeLayoutTool(options.files);
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
        PrintError(Text("the output cannot be written"));
    } catch (const std::exception& error) {
        PrintError(error.what());
    }
    return Failed;
}

} // namespace
} // namespace atlashost

int main(int argc, char** argv)
{
    std::setlocale(LC_ALL, "");
    try {
        return atlashost::RunAndFlush(atlashost::ReadOptions(argc, argv));
    } catch (const styleatlas::terminal::UsageError& error) {
        atlashost::PrintError(atlashost::Text("%1; try --help", {error.what()}));
        return atlashost::WrongUsage;
    }
}
