// The program atlas-layout, which stands beside this one and knows where the style atlas keeps what.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace atlashost
{

struct ToolResult {
    int status = 0; // the exit status; Failed if a signal ended the tool
    std::string output;
};

// Where the error messages of the tool go: to standard error, or into its output.
enum class ToolErrors { Printed, InOutput };

// Runs the tool with these arguments. Throws std::runtime_error if it can't be started.
ToolResult RunLayoutTool(const std::vector<std::string>& arguments, ToolErrors errors);

// Replaces this program by the tool. Throws std::runtime_error if that fails.
[[noreturn]] void BecomeLayoutTool(std::span<const char* const> arguments);

} // namespace atlashost
