// The command line of the program.
#pragma once

#include "Commands.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace atlashost
{

enum class Action { List, Plot, Table, Window, Edit, Prepare, Layout, Help, Version };

struct Options {
    Action action = Action::Help; // without a command
    std::string_view hostName = "AirLab";
    std::int16_t fileColumn = 0;
    PlotTarget plot;
    std::span<const char* const> files; // as many as the action takes; of Layout, the arguments of the tool
};

// In the user's language.
std::string Usage();

// Reads the command line and moves the options to the front of argv. The result refers to the texts of argv.
// Throws styleatlas::terminal::UsageError.
Options ReadOptions(int argc, char** argv);

} // namespace atlashost
