// atlas-host: a measurement host. It reads files of measured data, knows the quantities from the unit
// library, and asks the style atlas how each curve is drawn.
#include "Commands.h"
#include "Options.h"
#include "SettingsFolder.h"
#include "Text.h"

#include "styleatlas.h"

#include <clocale>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string_view>

namespace atlashost
{
namespace
{

// Without the folder a layout cannot be saved, which this program never does: the styles are shown all the
// same.
void PrepareSettings(std::string_view hostName)
{
    try {
        CreateSettingsFolder(hostName);
    } catch (const std::filesystem::filesystem_error& error) {
        std::cerr << ProgramName << ": the folder for the layout cannot be made: " << error.what() << '\n';
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
    case Action::List:
    case Action::Plot:
    case Action::Table:
        break;
    }
    PrepareSettings(options.hostName);
    StyleAtlasSetApplication(ToUtf16(options.hostName).c_str());
    if (options.action == Action::List)
        return ListCurves(options.files);
    if (options.action == Action::Plot)
        return PlotCurves(options.files, options.plot);
    return ShowTable(options.fileColumn);
}

int RunAndFlush(const Options& options)
{
    const int status = Run(options);
    std::cout.flush();
    if (std::cout)
        return status;
    std::cerr << ProgramName << ": the output cannot be written\n";
    return Failed;
}

} // namespace
} // namespace atlashost

int main(int argc, char** argv)
{
    std::setlocale(LC_ALL, "");
    try {
        return atlashost::RunAndFlush(atlashost::ReadOptions(argc, argv));
    } catch (const atlashost::UsageError& error) {
        std::cerr << atlashost::ProgramName << ": " << error.what() << "; try --help\n";
        return atlashost::WrongUsage;
    } catch (const std::exception& error) {
        std::cerr << atlashost::ProgramName << ": " << error.what() << '\n';
        return atlashost::Failed;
    }
}
