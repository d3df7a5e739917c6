// Messages for the user.
#pragma once

#include <functional>
#include <string>

namespace atlashost
{

// Takes a message in a printable form.
using Report = std::function<void(const std::string& message)>;

// Prints a message on standard error.
void PrintError(const std::string& message);

} // namespace atlashost
