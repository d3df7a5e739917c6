#include "Report.h"

#include "Commands.h"

#include <iostream>

namespace atlashost
{

void PrintError(const std::string& message)
{
    std::cerr << ProgramName << ": " << message << '\n';
}

} // namespace atlashost
